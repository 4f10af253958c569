// How a text comes into the garbage: copied (init, keep), or as it is (adopt).
//
//     garbage.keep("abc")     a copy, since there is none yet
//     garbage.keep("abc")     the pointer of that copy
//     garbage.keep("")        the same pointer for every parser and result, and no memory
#include "text/garbage.h"

namespace vorn_3_1::internal {

namespace {
constexpr std::string_view empty = "";  // one pointer for all
}

const char* Garbage::init(const char* text) { return keep(text == nullptr ? "" : text).data(); }

std::string_view Garbage::keep(std::string_view text) {
    return kept(text, [&] { return arena.copy(text); });
}

std::string_view Garbage::adopt(std::string_view text) {
    return kept(text, [&] { return text; });
}

// Asks for the copy only where the text is new. Room in the table is made first: if there is none, the arena has not
// grown for nothing, and once there is a copy nothing can fail any more.
template <class Copy>
std::string_view Garbage::kept(std::string_view text, Copy copy) {
    if (text.empty()) return empty;
    const std::uint32_t hash = hashOf(text);
    if (const KeptText* known = texts.find(text, hash)) return known->text;
    texts.reserve(1);
    return texts.add({copy()}, hash).text;
}

}  // namespace vorn_3_1::internal
