// Two ways to look names up, and when to go over from one to the other.
//
//     names                        looked up by
//     those in trees               WordTree: word by word
//     those registered since then  shortenedWords, one name after the other
//
// The names in trees come first in the index and the others behind them, so `namesInTrees` is where the second way
// begins. growTrees moves it. Both ways give each name that matches to Query::add, which keeps those with the fewest
// shortened words.
#include "recognisers/name_search.h"

namespace vorn_3_1::internal {

namespace {

constexpr unsigned noMatch = ~0u;

bool isWordEnd(std::string_view name, std::size_t at) { return at == name.size() || name[at] == endOfWord; }

// How many of the name's words the typed words shorten, or noMatch.
unsigned shortenedWords(std::string_view typed, std::string_view name) {
    unsigned shortened = 0;
    for (std::size_t inTyped = 0, inName = 0;; ++inTyped, ++inName) {
        for (; !isWordEnd(typed, inTyped); ++inTyped, ++inName) {
            if (inName == name.size() || name[inName] != typed[inTyped]) return noMatch;
        }
        if (!isWordEnd(name, inName)) ++shortened;
        while (!isWordEnd(name, inName))
            ++inName;
        if (inTyped == typed.size() || inName == name.size())
            return inTyped == typed.size() && inName == name.size() ? shortened : noMatch;
    }
}

}  // namespace

struct NameSearch::Query {
    void add(unsigned number, unsigned shortened) {
        shortened += alreadyShortened;
        if (shortened > fewestShortened || (negated && !names[number].isOfSwitch)) return;
        if (shortened < fewestShortened) best.clear();
        fewestShortened = shortened;
        best.push_back({number, negated});
    }

    std::string_view typed;
    const std::vector<RegisteredName>& names;
    std::vector<NameMatch>& best;
    bool negated = false;  // looks for what follows "no-"
    unsigned alreadyShortened = 0;
    unsigned fewestShortened = ~0u;
};

void NameSearch::find(std::string_view typed, const std::vector<RegisteredName>& names,
                      std::vector<NameMatch>& best) {
    best.clear();
    growTrees(names);
    Query query{typed, names, best};
    search(query);

    const std::string_view word = negation.substr(0, negation.size() - 1);
    const std::size_t wordEnd = typed.find(endOfWord);
    if (wordEnd == std::string_view::npos || !word.starts_with(typed.substr(0, wordEnd))) return;
    query.typed = typed.substr(wordEnd + 1);
    query.negated = true;
    query.alreadyShortened = wordEnd < word.size() ? 1 : 0;
    search(query);
}

void NameSearch::search(Query& query) {
    for (const WordTree& tree : trees) {
        for (const WordTree::Match& match : tree.find(query.typed, matches)) {
            for (const unsigned number : tree.namesAt(match))
                query.add(number, match.shortened);
        }
    }
    const bool beginsWithWord = !isWordEnd(query.typed, 0);
    for (auto number = static_cast<unsigned>(namesInTrees); number < query.names.size(); ++number) {
        const std::string_view name = query.names[number].key();
        if (beginsWithWord && !name.starts_with(query.typed[0])) continue;
        const unsigned shortened = shortenedWords(query.typed, name);
        if (shortened != noMatch) query.add(number, shortened);
    }
}

void NameSearch::growTrees(const std::vector<RegisteredName>& names) {
    constexpr std::size_t few = 64;  // are compared as fast as they are found in a tree
    constexpr std::size_t comparisonsForTree = 16;
    std::size_t unread = names.size() - namesInTrees;
    comparisons += unread;
    if (unread <= few || comparisons <= comparisonsForTree * unread) return;

    while (!trees.empty() && trees.back().size() <= 2 * unread) {
        unread += trees.back().size();
        trees.pop_back();
    }
    namesInTrees = names.size() - unread;
    trees.emplace_back(names, namesInTrees);
    namesInTrees = names.size();
    comparisons = 0;
}

}  // namespace vorn_3_1::internal
