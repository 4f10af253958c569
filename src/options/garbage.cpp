#include "options/garbage.h"

namespace vorn_3_1::internal {

const char* Garbage::init(const char* text) { return keep(text == nullptr ? "" : text).data(); }

std::string_view Garbage::keep(std::string_view text) {
    return find(text, [this](std::string_view unknown) { return arena.copy(unknown); });
}

std::string_view Garbage::adopt(std::string_view text) {
    return find(text, [](std::string_view unknown) { return unknown; });
}

template <class Own>
std::string_view Garbage::find(std::string_view text, Own own) {
    static constexpr std::string_view empty = "";
    if (text.empty()) return empty;
    texts.reserve(1);
    const std::uint32_t hash = hashOf(text);
    TextEntry& entry = texts.entryFor(text, hash);
    if (entry.isFree()) texts.add(entry, {own(text), hash});
    return entry.key();
}

}  // namespace vorn_3_1::internal
