// Memory for many texts that live and die together: the registry's, the garbage's, a result's.
//
//     TextArena texts;
//     std::string_view name = texts.copy("level");     5 characters and a NUL, good as long as the arena
//
// No text can be given back alone. In return, a copy costs hardly more than its characters: the arena takes memory from
// the system in growing blocks and lays one text behind the other.
#ifndef VORN_TEXT_TEXT_ARENA_H
#define VORN_TEXT_TEXT_ARENA_H

#include <algorithm>
#include <memory_resource>
#include <string_view>

namespace vorn_3_1::internal {

/// Whoever owns the arena owns its texts. Not for texts that come and go: those are ArgumentList's.
class TextArena {
public:
    /// A copy of the text, followed by a NUL, valid as long as the arena.
    std::string_view copy(std::string_view text) {
        auto* place = static_cast<char*>(memory.allocate(text.size() + 1, 1));
        *std::copy(text.begin(), text.end(), place) = '\0';
        return {place, text.size()};
    }

private:
    // Not from the default resource: a host may set another one, and end it.
    std::pmr::monotonic_buffer_resource memory{std::pmr::new_delete_resource()};
};

}  // namespace vorn_3_1::internal

#endif
