// The arguments of one parse.
//
// The parser fills the list, recognisers take from its front. They may look at one argument more, for a value that
// stands apart from its option:
//
//     args             front      second
//     --level 5 file   --level    5
//     file             file       not to be asked for
#ifndef VORN_RECOGNISERS_ARGUMENT_LIST_H
#define VORN_RECOGNISERS_ARGUMENT_LIST_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace vorn_3_1::internal {

/// A queue of texts without NUL characters. Every view that it is given, and hands out, is followed by a NUL and is good
/// until the parse ends.
class ArgumentList {
public:
    void reserve(std::size_t count) { texts.reserve(count); }
    void append(std::string_view argument) { texts.push_back(argument); }

    bool empty() const { return first == texts.size(); }
    std::size_t size() const { return texts.size() - first; }
    /// Only where there is one, like removeFront.
    std::string_view front() const { return texts[first]; }
    /// The argument behind the front one. Only where size() is above 1.
    std::string_view second() const { return texts[first + 1]; }
    void removeFront() { ++first; }

private:
    std::vector<std::string_view> texts;
    std::size_t first = 0;  // that was not removed
};

}  // namespace vorn_3_1::internal

#endif
