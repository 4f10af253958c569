// The arguments of one parse.
//
// The parser fills the list, recognisers take from its front. They may look at one argument more, for a value that
// stands apart from its option:
//
//     args             front      second
//     --level 5 file   --level    5
//     file             file       not to be asked for
//
// The texts stand one behind the other in blocks, since an allocation for each would cost more than reading it:
//
//     block 1   "--level" NUL "5" NUL ...        gone when its last text is removed
//     block 2   "file" NUL
#ifndef VORN_RECOGNISERS_ARGUMENT_LIST_H
#define VORN_RECOGNISERS_ARGUMENT_LIST_H

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <memory>
#include <string_view>

namespace vorn_3_1::internal {

/// A queue of texts without NUL characters. Every view that it hands out is followed by a NUL and is good until
/// its text is removed. Their memory is given back as they are removed, so that of a long command line becomes
/// the result's.
class ArgumentList {
public:
    /// Copies the argument behind the others. A text is never split: where it does not fit, a new block begins.
    void append(std::string_view argument) {
        const std::size_t bytes = argument.size() + 1;
        if (blocks.empty() || blocks.back().size - blocks.back().used < bytes) addBlock(bytes);
        Block& block = blocks.back();
        char* end = std::copy(argument.begin(), argument.end(), block.texts.get() + block.used);
        *end = '\0';
        block.used += bytes;
        if (count++ == 0) first = textAt(0);
    }

    bool empty() const { return count == 0; }
    std::size_t size() const { return count; }
    std::string_view front() const { return first; }
    /// The argument behind the front one. Only where size() is above 1.
    std::string_view second() const {
        const std::size_t next = start + first.size() + 1;
        return next < blocks.front().used ? textAt(next) : std::next(blocks.begin())->texts.get();
    }

    /// Views of the front argument are not good any more. Only where there is one.
    void removeFront() {
        start += first.size() + 1;
        if (start == blocks.front().used) {
            blocks.pop_front();
            start = 0;
        }
        first = --count == 0 ? "" : textAt(start);
    }

private:
    struct Block {
        std::unique_ptr<char[]> texts;  // each ends with a NUL
        std::size_t size;
        std::size_t used;  // never 0
    };

    void addBlock(std::size_t bytes) {
        constexpr std::size_t usualSize = 4000;  // with what surrounds it, below a page
        const std::size_t size = std::max(bytes, usualSize);
        blocks.push_back({std::make_unique_for_overwrite<char[]>(size), size, 0});
    }

    const char* textAt(std::size_t offset) const { return blocks.front().texts.get() + offset; }

    // A list, since the first block goes and the others stay.
    std::list<Block> blocks;
    std::size_t start = 0;  // of the front text in its block
    std::string_view first;
    std::size_t count = 0;
};

}  // namespace vorn_3_1::internal

#endif
