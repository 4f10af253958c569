// Names by their words, for a parser that is asked for many shortened names.
//
// NameSearch makes trees when comparing every name costs more. The names out-dir, out-file, output-file and verbose, and
// the nodes on the way of "o-f":
//
//     root +-- out    +-- dir
//          |          +-- file    <-- "o" and "f" begin "out" and "file": two words shortened
//          +-- output --- file    <-- likewise
//          +-- verbose
//
// All words of one parent stand in order, so those that begin with the typed word stand side by side.
#ifndef VORN_RECOGNISERS_WORD_TREE_H
#define VORN_RECOGNISERS_WORD_TREE_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "options/option_index.h"

namespace vorn_3_1::internal {

constexpr char endOfWord = '-';

/// One level per word, so that a typed name meets only names whose earlier words it matches. The tree is laid out level
/// by level in one array: it is made and searched by walking along, and its depth does not matter.
class WordTree {
public:
    struct Match {
        unsigned node;
        unsigned shortened;  // how many words
    };

    /// Of the names from `first` on.
    WordTree(const std::vector<RegisteredName>& registered, std::size_t first);

    std::size_t size() const { return ends.size(); }

    /// Where names may end that have as many words as the typed one, all of which begin with the typed words. Kept in
    /// `memory`.
    std::span<const Match> find(std::string_view typed, std::vector<Match>& memory) const;

    /// The names that end there, by their numbers in the index.
    std::span<const unsigned> namesAt(const Match& match) const;

private:
    // A name's first word, with its first characters as a number, which nearly always decide a comparison.
    struct Word {
        Word() = default;
        explicit Word(std::string_view name);
        bool operator<(const Word& other) const {
            return start != other.start ? start < other.start : text < other.text;
        }

        std::string_view text;
        std::uint32_t start = 0;
    };
    // Until its children are made, theirs are the places of the names that go on behind it.
    struct Node {
        Word word;
        unsigned firstName = 0;  // of those that end here, in `ends`
        unsigned behindNames = 0;
        unsigned firstChild = 0;  // in order of their words
        unsigned behindChildren = 0;
    };
    struct NameToRead;

    void addChildren(unsigned parent, std::vector<NameToRead>& names);

    std::vector<Node> nodes;
    std::vector<unsigned> ends;  // the names, one node's behind the other's
};

}  // namespace vorn_3_1::internal

#endif
