// How a tree is made and searched, both without recursion: a name may have 80,000 words.
//
// Making: the names are sorted by their first word; each different word becomes a child of the root, with its names in
// one piece. The names that end there go to the front of the piece. Those that go on read their next word, and their
// piece is what the next level is made of. After out-dir, out-file and verbose have been sorted at the root:
//
//     names    dir  file | (verbose has ended)
//     nodes    root, out (whose names are 0 and 1), verbose (whose name is 2)
//
// Searching: a list of the nodes that match so far, to whose end their matching children are added, word by word.
#include "recognisers/word_tree.h"

#include <algorithm>

namespace vorn_3_1::internal {

// The number orders words like their bytes do; behind a short word it has zeros.
WordTree::Word::Word(std::string_view name) {
    std::size_t length = 0;
    for (; length < name.size() && name[length] != endOfWord; ++length) {
        if (length < sizeof start)
            start |= std::uint32_t{static_cast<unsigned char>(name[length])} << (24 - 8 * length);
    }
    text = name.substr(0, length);
}

struct WordTree::NameToRead {
    NameToRead(std::string_view text, unsigned ofNumber)
        : word(text), rest(text.substr(word.text.size())), number(ofNumber) {}

    bool isRead() const { return rest.empty(); }
    void readWord() { *this = NameToRead(rest.substr(1), number); }

    Word word;
    std::string_view rest;  // empty, or begins with the end of the word
    unsigned number;
};

WordTree::WordTree(const std::vector<RegisteredName>& registered, std::size_t first) {
    std::vector<NameToRead> names;
    names.reserve(registered.size() - first);
    for (std::size_t number = first; number < registered.size(); ++number)
        names.emplace_back(registered[number].key(), static_cast<unsigned>(number));

    nodes.emplace_back().behindChildren = static_cast<unsigned>(names.size());
    for (unsigned parent = 0; parent < nodes.size(); ++parent)
        addChildren(parent, names);
    ends.reserve(names.size());
    for (const NameToRead& name : names)
        ends.push_back(name.number);
}

void WordTree::addChildren(unsigned parent, std::vector<NameToRead>& names) {
    NameToRead* const end = names.data() + nodes[parent].behindChildren;
    NameToRead* first = names.data() + nodes[parent].firstChild;
    const auto placeOf = [&](const NameToRead* name) { return static_cast<unsigned>(name - names.data()); };
    std::sort(first, end, [](const auto& left, const auto& right) { return left.word < right.word; });
    nodes[parent].firstChild = static_cast<unsigned>(nodes.size());
    while (first != end) {
        NameToRead* const behind =
            std::find_if(first, end, [&](const auto& name) { return first->word < name.word; });
        NameToRead* const unread =
            std::partition(first, behind, [](const auto& name) { return name.isRead(); });
        nodes.push_back({first->word, placeOf(first), placeOf(unread), placeOf(unread), placeOf(behind)});
        std::for_each(unread, behind, [](auto& name) { name.readWord(); });
        first = behind;
    }
    nodes[parent].behindChildren = static_cast<unsigned>(nodes.size());
}

std::span<const WordTree::Match> WordTree::find(std::string_view typed, std::vector<Match>& memory) const {
    memory.assign(1, {0, 0});
    std::size_t first = 0;  // of those that match all words so far
    for (bool isLast = false; !isLast && first < memory.size();) {
        const Word word(typed);
        isLast = word.text.size() == typed.size();
        typed.remove_prefix(word.text.size() + (isLast ? 0 : 1));
        for (const std::size_t behind = memory.size(); first < behind; ++first) {
            const auto [parent, shortened] = memory[first];
            const Node* const end = nodes.data() + nodes[parent].behindChildren;
            const Node* child =
                std::lower_bound(nodes.data() + nodes[parent].firstChild, end, word,
                                 [](const Node& node, const Word& other) { return node.word < other; });
            for (; child != end && child->word.text.starts_with(word.text); ++child) {
                const bool isWhole = child->word.text.size() == word.text.size();
                memory.push_back(
                    {static_cast<unsigned>(child - nodes.data()), shortened + (isWhole ? 0 : 1)});
            }
        }
    }
    return std::span(memory).subspan(first);
}

std::span<const unsigned> WordTree::namesAt(const Match& match) const {
    const Node& node = nodes[match.node];
    return std::span(ends).subspan(node.firstName, node.behindNames - node.firstName);
}

}  // namespace vorn_3_1::internal
