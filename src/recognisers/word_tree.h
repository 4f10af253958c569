// All names that a user may type, by their words.
#ifndef VORN_RECOGNISERS_WORD_TREE_H
#define VORN_RECOGNISERS_WORD_TREE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "options/option_index.h"
#include "recognisers/decomposed_name.h"
#include "text/pool.h"

namespace vorn_3_1::internal {

/// A name that a typed name may stand for.
struct NameMatch {
    int score = 0;  // over all words: 2 for one typed in full, 1 for a shortened one
    bool negated = false;
    RegisteredName name;

    std::string getName() const;
};

/// One level per word, so that a typed name meets only names whose earlier words it matches. The parser
/// keeps the tree between parses; names are only ever added to a registry, so bringing it up to date means
/// reading what was added since.
class WordTree {
public:
    /// Reads the registry's names from the first unread one on. What it adds counts only once.
    void update(const std::vector<RegisteredName>& names);

    /// Sets `matches` to the best ones among the names with as many words as the typed one whose words begin
    /// with the typed words: those with the highest score, in no particular order.
    void match(const DecomposedName& typed, std::vector<NameMatch>& matches) const;

private:
    struct Ending {
        RegisteredName name;
        bool negated = false;
        const Ending* next = nullptr;
    };
    struct Node;
    // A word with its first characters as a number, which nearly always decide a comparison.
    struct Key {
        explicit Key(std::string_view text);
        bool operator<(const Key& other) const {
            return start != other.start ? start < other.start : word < other.word;
        }

        std::uint32_t start = 0;
        std::string_view word;
    };
    struct Child {
        Key key;
        Node* node = nullptr;
    };
    struct Node {
        std::vector<Child> children;      // in order of their words
        const Ending* endings = nullptr;  // the names that end here
    };

    void add(const RegisteredName& name, bool negated, bool again);
    Node& nodeFor(const DecomposedName& name);
    Node& childOf(Node& node, std::string_view word);
    static void search(const Node& node, const DecomposedName& typed, std::size_t depth, int score,
                       std::vector<NameMatch>& matches);

    Node root;
    Pool<Node> nodes;
    Pool<Ending> endings;
    DecomposedName scratch;
    std::size_t namesRead = 0;
    bool isUnfinished = false;  // an update failed half-way, and is to be done again from its start
};

}  // namespace vorn_3_1::internal

#endif
