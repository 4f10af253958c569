#include "recognisers/word_tree.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "text/joined_text.h"

namespace vorn_3_1::internal {

namespace {

// Ranks names as lists of words: a word's end comes before any character.
bool precedesByWords(const RegisteredName& left, const RegisteredName& right) {
    const auto rank = [](char character) {
        return character == '-' ? -1 : static_cast<unsigned char>(character);
    };
    return std::ranges::lexicographical_compare(left.text(), right.text(), std::less(), rank, rank);
}

}  // namespace

std::string NameMatch::getName() const { return joined({negated ? negation : "", name.text()}); }

void WordTree::update(const std::vector<RegisteredName>& names) {
    if (namesRead == names.size()) return;
    // In their order, many new children are appended to their nodes instead of inserted.
    std::vector<RegisteredName> unread(names.begin() + static_cast<std::ptrdiff_t>(namesRead), names.end());
    std::sort(unread.begin(), unread.end(), precedesByWords);
    const bool again = std::exchange(isUnfinished, true);
    for (const RegisteredName& name : unread) {
        add(name, false, again);
        if (name.isSwitch) add(name, true, again);
    }
    isUnfinished = false;
    namesRead = names.size();
}

void WordTree::add(const RegisteredName& name, bool negated, bool again) {
    scratch.clear();
    if (negated) scratch.append(negation.substr(0, negation.size() - 1));
    scratch.append(name.text());
    Node& node = nodeFor(scratch);
    for (const Ending* ending = again ? node.endings : nullptr; ending != nullptr; ending = ending->next) {
        const RegisteredName& other = ending->name;
        if (other.option == name.option && other.ordinal == name.ordinal && ending->negated == negated)
            return;
    }
    node.endings = &endings.add(name, negated, node.endings);
}

WordTree::Node& WordTree::nodeFor(const DecomposedName& name) {
    Node* node = &root;
    for (const std::string_view word : name.words())
        node = &childOf(*node, word);
    return *node;
}

// The number orders words like their bytes do; behind a short word it has zeros.
WordTree::Key::Key(std::string_view text) : word(text) {
    for (std::size_t i = 0; i < sizeof start; ++i) {
        start = start << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    }
}

WordTree::Node& WordTree::childOf(Node& node, std::string_view word) {
    const Key key(word);
    const auto place = std::ranges::lower_bound(node.children, key, std::less(), &Child::key);
    if (place != node.children.end() && place->key.word == word) return *place->node;
    return *node.children.insert(place, Child{key, &nodes.add()})->node;
}

void WordTree::match(const DecomposedName& typed, std::vector<NameMatch>& matches) const {
    matches.clear();
    search(root, typed, 0, 0, matches);
}

void WordTree::search(const Node& node, const DecomposedName& typed, std::size_t depth, int score,
                      std::vector<NameMatch>& matches) {
    const int wordsLeft = static_cast<int>(typed.words().size() - depth);
    if (wordsLeft == 0) {
        if (node.endings != nullptr && !matches.empty() && matches[0].score < score) matches.clear();
        for (const Ending* ending = node.endings; ending != nullptr; ending = ending->next) {
            matches.push_back({score, ending->negated, ending->name});
        }
        return;
    }
    const std::string_view word = typed.words()[depth];
    // A word typed in full comes first, so most of what it beats is never looked at.
    auto child = std::ranges::lower_bound(node.children, Key(word), std::less(), &Child::key);
    for (; child != node.children.end() && child->key.word.starts_with(word); ++child) {
        const int reached = score + (child->key.word.size() == word.size() ? 2 : 1);
        const int best = matches.empty() ? 0 : matches[0].score;
        if (reached + 2 * (wordsLeft - 1) >= best) search(*child->node, typed, depth + 1, reached, matches);
    }
}

}  // namespace vorn_3_1::internal
