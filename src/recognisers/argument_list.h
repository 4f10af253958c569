// The arguments of one parse.
#ifndef VORN_RECOGNISERS_ARGUMENT_LIST_H
#define VORN_RECOGNISERS_ARGUMENT_LIST_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "options/text_arena.h"

namespace vorn_3_1::internal {

/// A queue of texts without NUL characters. Every view that it hands out is followed by a NUL and is good as
/// long as the list, whatever is appended or removed.
class ArgumentList {
public:
    void reserve(std::size_t count) { texts.reserve(count); }
    void append(std::string_view argument) { texts.push_back(memory.copy(argument)); }

    bool empty() const { return first == texts.size(); }
    std::size_t size() const { return texts.size() - first; }
    std::string_view front() const { return texts[first]; }
    std::string_view second() const { return texts[first + 1]; }
    void removeFront() { ++first; }

private:
    TextArena memory;
    std::vector<std::string_view> texts;
    std::size_t first = 0;  // those before it are removed
};

}  // namespace vorn_3_1::internal

#endif
