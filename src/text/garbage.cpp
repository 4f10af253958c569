#include "text/garbage.h"

namespace vorn_3_1::internal {

namespace {
constexpr std::string_view empty = "";  // one pointer for all keepers
}

const char* Garbage::init(const char* text) { return keep(text == nullptr ? "" : text).data(); }

std::string_view Garbage::keep(std::string_view text) {
    if (text.empty()) return empty;
    const std::uint32_t hash = hashOf(text);
    const TextEntry* known = texts.find(text, hash);
    return known == nullptr ? add(arena.copy(text), hash) : known->key();
}

std::string_view Garbage::adopt(std::string_view text) {
    if (text.empty()) return empty;
    const std::uint32_t hash = hashOf(text);
    const TextEntry* known = texts.find(text, hash);
    return known == nullptr ? add(text, hash) : known->key();
}

std::string_view Garbage::add(std::string_view text, std::uint32_t hash) {
    texts.reserve(1);
    return texts.add({text, hash}).key();
}

}  // namespace vorn_3_1::internal
