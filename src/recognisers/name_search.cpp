#include "recognisers/name_search.h"

#include <algorithm>

namespace vorn_3_1::internal {

namespace {

constexpr char endOfWord = '-';

// The order of names as lists of words: a word's end comes before any character.
bool precedes(std::string_view left, std::string_view right) {
    const auto [inLeft, inRight] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (inLeft == left.end() || inRight == right.end()) return inRight != right.end();
    if (*inLeft == endOfWord || *inRight == endOfWord) return *inLeft == endOfWord;
    return static_cast<unsigned char>(*inLeft) < static_cast<unsigned char>(*inRight);
}

// Where a search through names in order goes on: the first that does not precede `head` and `tail` together.
struct Place {
    std::string_view head;
    std::string_view tail;

    bool isBehind(std::string_view name) const {
        return name.starts_with(head) ? precedes(name.substr(head.size()), tail) : precedes(name, head);
    }
};

// Behind all names that are `words`, or begin with them and have more. NUL is the first character.
Place behind(std::string_view words) { return {words, std::string_view("", 1)}; }

struct Comparison {
    bool matches = false;
    unsigned shortened = 0;  // how many words
    Place next{};            // of what may match, when this name does not
    bool isLast = false;     // nothing behind the name matches
};

// Ends at the first word by which the name does not match, or has too many shortened ones.
Comparison compare(std::string_view typed, std::string_view name, unsigned alreadyShortened,
                   unsigned mostShortened) {
    Comparison result{.shortened = alreadyShortened};
    for (std::size_t inTyped = 0, inName = 0;;) {
        const std::size_t typedEnd = std::min(typed.find(endOfWord, inTyped), typed.size());
        const std::size_t nameEnd = std::min(name.find(endOfWord, inName), name.size());
        const std::string_view typedWord = typed.substr(inTyped, typedEnd - inTyped);
        const std::string_view nameWord = name.substr(inName, nameEnd - inName);
        if (!nameWord.starts_with(typedWord)) {
            if (nameWord < typedWord) {
                result.next = {name.substr(0, inName), typed.substr(inTyped)};
            } else if (inName == 0) {
                result.isLast = true;
            } else {
                result.next = behind(name.substr(0, inName - 1));
            }
            return result;
        }
        if (nameWord.size() > typedWord.size()) ++result.shortened;
        result.next = behind(name.substr(0, nameEnd));
        if (result.shortened > mostShortened) return result;
        if (typedEnd == typed.size()) {
            result.matches = nameEnd == name.size();
            if (result.matches) result.next = {name, {}};  // may be there twice
            return result;
        }
        if (nameEnd == name.size()) {
            result.next = {name, typed.substr(typedEnd)};
            return result;
        }
        inTyped = typedEnd + 1;
        inName = nameEnd + 1;
    }
}

}  // namespace

struct NameSearch::Query {
    // Returns what a search through names in order needs to know.
    Comparison compareWith(unsigned number) {
        const Comparison result = compare(typed, names[number].key(), alreadyShortened, fewestShortened);
        if (!result.matches || (negated && !names[number].isOfSwitch)) return result;
        if (result.shortened < fewestShortened) best.clear();
        fewestShortened = result.shortened;
        best.push_back({number, negated});
        return result;
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
    sortWhenWorthIt(names);
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

void NameSearch::search(Query& query) const {
    std::size_t start = 0;
    for (const std::size_t end : runEnds) {
        searchRun(sorted.data() + start, sorted.data() + end, query);
        start = end;
    }
    const bool beginsWithWord = !query.typed.empty() && query.typed.front() != endOfWord;
    for (auto number = static_cast<unsigned>(start); number < query.names.size(); ++number) {
        if (beginsWithWord && !query.names[number].key().starts_with(query.typed.front())) continue;
        query.compareWith(number);
    }
}

void NameSearch::searchRun(const unsigned* first, const unsigned* end, Query& query) {
    Place place{query.typed, {}};
    while (true) {
        const auto isBehind = [&](unsigned number) { return place.isBehind(query.names[number].key()); };
        // In steps that grow, since the next place is often near.
        std::ptrdiff_t step = 1;
        for (; step <= end - first && isBehind(first[step - 1]); step *= 2)
            first += step;
        first = std::partition_point(first, first + std::min(step - 1, end - first), isBehind);
        if (first == end) return;
        const Comparison comparison = query.compareWith(*first++);
        if (comparison.isLast) return;
        place = comparison.next;
    }
}

void NameSearch::sortWhenWorthIt(const std::vector<RegisteredName>& names) {
    constexpr std::size_t comparisonsForOrder = 16;
    std::size_t start = sorted.size();  // of the newest run
    comparisons += names.size() - start;
    if (comparisons <= comparisonsForOrder * (names.size() - start)) return;

    runEnds.reserve(runEnds.size() + 1);
    sorted.reserve(names.size() > sorted.capacity() ? std::max(names.size(), 2 * start) : 0);
    while (sorted.size() < names.size())
        sorted.push_back(static_cast<unsigned>(sorted.size()));
    const auto at = [this](std::size_t index) { return sorted.data() + index; };
    const auto inOrder = [&](unsigned left, unsigned right) {
        return precedes(names[left].key(), names[right].key());
    };
    std::sort(at(start), at(sorted.size()), inOrder);
    while (!runEnds.empty()) {
        const std::size_t before = runEnds.size() > 1 ? *(runEnds.end() - 2) : 0;
        if (start - before > 2 * (sorted.size() - start)) break;
        std::inplace_merge(at(before), at(start), at(sorted.size()), inOrder);
        start = before;
        runEnds.pop_back();
    }
    runEnds.push_back(sorted.size());
    comparisons = 0;
}

}  // namespace vorn_3_1::internal
