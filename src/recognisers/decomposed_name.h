// An option name as a list of words.
#ifndef VORN_RECOGNISERS_DECOMPOSED_NAME_H
#define VORN_RECOGNISERS_DECOMPOSED_NAME_H

#include <string>
#include <string_view>
#include <vector>

namespace vorn_3_1::internal {

/// Every '-' ends a word, which may be empty; so a--b has the words a, an empty one and b, and the empty name
/// has one empty word. The words are parts of the name that they were built from, which has to outlive them.
class DecomposedName {
public:
    DecomposedName() = default;
    explicit DecomposedName(std::string_view name) { append(name); }

    /// Adds the words of a further name, as if joined by a '-'.
    void append(std::string_view name);
    void clear() { list.clear(); }

    const std::vector<std::string_view>& words() const { return list; }

    /// The words joined by '-'.
    std::string getName() const;

private:
    std::vector<std::string_view> list;
};

}  // namespace vorn_3_1::internal

#endif
