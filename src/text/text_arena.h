// Memory for many texts that live and die together.
#ifndef VORN_TEXT_TEXT_ARENA_H
#define VORN_TEXT_TEXT_ARENA_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace vorn_3_1::internal {

class TextArena {
public:
    /// A copy of the text, followed by a NUL, valid as long as the arena.
    std::string_view copy(std::string_view text) {
        const std::size_t bytes = text.size() + 1;
        char* place = free;
        if (bytes <= room) [[likely]] {
            free += bytes;
            room -= bytes;
        } else {
            place = obtain(bytes);
        }
        std::copy(text.begin(), text.end(), place);
        place[text.size()] = '\0';
        return {place, text.size()};
    }

private:
    char* obtain(std::size_t bytes);  // from a new block

    std::vector<std::unique_ptr<char[]>> blocks;
    char* free = nullptr;  // the rest of the newest shared block
    std::size_t room = 0;
    std::size_t nextBlock = 256;
};

}  // namespace vorn_3_1::internal

#endif
