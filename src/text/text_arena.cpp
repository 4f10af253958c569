#include "text/text_arena.h"

#include <algorithm>

namespace vorn_3_1::internal {

namespace {
constexpr std::size_t largestBlock = 4096;
}

char* TextArena::obtain(std::size_t bytes) {
    // A large text gets a block of its own, so that the rest of the shared one is not lost.
    const bool alone = bytes > nextBlock / 4;
    const std::size_t size = alone ? bytes : nextBlock;
    blocks.push_back(std::make_unique_for_overwrite<char[]>(size));
    char* place = blocks.back().get();
    if (alone) return place;
    free = place + bytes;
    room = size - bytes;
    nextBlock = std::min(nextBlock * 2, largestBlock);
    return place;
}

}  // namespace vorn_3_1::internal
