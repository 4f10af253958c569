#include "recognisers/name_search.h"

#include <algorithm>
#include <cstring>

namespace vorn_3_1::internal {

namespace {

constexpr char endOfWord = '-';

bool isWordEnd(std::string_view name, std::size_t at) { return at == name.size() || name[at] == endOfWord; }

// How many characters both begin with. Eight at a time, since neighbours in order have much in common.
std::size_t commonLength(std::string_view left, std::string_view right) {
    const std::size_t most = std::min(left.size(), right.size());
    std::size_t length = 0;
    while (length + 8 <= most && std::memcmp(left.data() + length, right.data() + length, 8) == 0)
        length += 8;
    while (length < most && left[length] == right[length])
        ++length;
    return length;
}

// The order of names as lists of words: a word's end comes before any character.
bool precedes(std::string_view left, std::string_view right) {
    const std::size_t common = commonLength(left, right);
    if (common == left.size() || common == right.size()) return common < right.size();
    if (left[common] == endOfWord || right[common] == endOfWord) return left[common] == endOfWord;
    return static_cast<unsigned char>(left[common]) < static_cast<unsigned char>(right[common]);
}

// Where a search through names in order goes on: at the first that does not precede `head` and `tail` together.
struct Place {
    std::string_view head;
    std::string_view tail;

    bool isBehind(std::string_view name) const {
        const std::size_t common = commonLength(name, head);
        return precedes(name.substr(common), common == head.size() ? tail : head.substr(common));
    }
};

// The first characters as a number, which orders most names as precedes does: equal numbers tell nothing.
std::uint32_t startOf(std::string_view head, std::string_view tail = {}) {
    std::uint32_t start = 0;
    for (std::size_t i = 0; i < sizeof start; ++i) {
        const std::string_view part = i < head.size() ? head : tail;
        const std::size_t at = i < head.size() ? i : i - head.size();
        start = start << 8 |
                (isWordEnd(part, std::min(at, part.size())) ? 0U : static_cast<unsigned char>(part[at]));
    }
    return start;
}

// Behind all names that are `words`, or begin with them and have more. NUL is the first character.
Place behind(std::string_view words) { return {words, std::string_view("", 1)}; }

struct Comparison {
    bool matches = false;
    unsigned shortened = 0;  // how many words
    Place next{};            // the next name that may match
    bool isLast = false;     // there is none
};

// Where to go on from a name whose word at `inName` does not begin with the typed one at `inTyped`.
Comparison mismatch(std::string_view typed, std::size_t inTyped, std::string_view name, std::size_t inName) {
    if (precedes(name.substr(inName), typed.substr(inTyped)))
        return {.next = {name.substr(0, inName), typed.substr(inTyped)}};
    if (inName == 0) return {.isLast = true};
    return {.next = behind(name.substr(0, inName - 1))};
}

// Ends at the first word by which the name does not match, or has too many shortened ones.
Comparison compare(std::string_view typed, std::string_view name, unsigned shortened,
                   unsigned mostShortened) {
    for (std::size_t inTyped = 0, inName = 0;; ++inTyped, ++inName) {
        const std::size_t typedWord = inTyped;
        const std::size_t nameWord = inName;
        for (; !isWordEnd(typed, inTyped); ++inTyped, ++inName) {
            if (inName == name.size() || name[inName] != typed[inTyped])
                return mismatch(typed, typedWord, name, nameWord);
        }
        if (!isWordEnd(name, inName)) ++shortened;
        while (!isWordEnd(name, inName))
            ++inName;
        if (shortened > mostShortened) return {.next = behind(name.substr(0, inName))};
        const bool nameEnds = inName == name.size();
        if (inTyped == typed.size()) {
            if (nameEnds)
                return {.matches = true, .shortened = shortened, .next = {name, {}}};  // may be there twice
            return {.next = behind(name.substr(0, inName))};
        }
        if (nameEnds) return {.next = {name, typed.substr(inTyped)}};
    }
}

}  // namespace

struct NameSearch::Query {
    // Returns what a search through names in order needs to know.
    Comparison compareWith(std::string_view name, unsigned number) {
        const Comparison result = compare(typed, name, alreadyShortened, fewestShortened);
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
    const bool beginsWithWord = !isWordEnd(query.typed, 0);
    for (auto number = static_cast<unsigned>(start); number < query.names.size(); ++number) {
        const std::string_view name = query.names[number].key();
        if (!beginsWithWord || name.starts_with(query.typed[0])) query.compareWith(name, number);
    }
}

void NameSearch::searchRun(const SortedName* first, const SortedName* end, Query& query) {
    Place place{query.typed, {}};
    std::ptrdiff_t step = end - first;  // the first time, all names; later the place is often near
    while (true) {
        const std::uint32_t start = startOf(place.head, place.tail);
        const auto isBehind = [&](const SortedName& name) {
            return name.start == start ? place.isBehind(name.text) : name.start < start;
        };
        for (; step < end - first && isBehind(first[step]); step = 2 * step + 1)
            first += step + 1;
        first = std::partition_point(first, first + std::min(step, end - first), isBehind);
        if (first == end) return;
        const Comparison comparison = query.compareWith(first->text, first->number);
        if (comparison.isLast) return;
        place = comparison.next;
        step = 0;
        ++first;
    }
}

void NameSearch::sortWhenWorthIt(const std::vector<RegisteredName>& names) {
    constexpr std::size_t few = 64;  // are compared as fast as they are found in order
    constexpr std::size_t comparisonsForOrder = 16;
    std::size_t start = sorted.size();  // of the newest run
    const std::size_t unsorted = names.size() - start;
    comparisons += unsorted;
    if (unsorted <= few || comparisons <= comparisonsForOrder * unsorted) return;

    runEnds.reserve(runEnds.size() + 1);
    sorted.reserve(names.size() > sorted.capacity() ? std::max(names.size(), 2 * start) : 0);
    for (std::size_t number = start; number < names.size(); ++number)
        sorted.push_back({names[number].key(), startOf(names[number].key()), static_cast<unsigned>(number)});
    const auto at = [this](std::size_t index) { return sorted.data() + index; };
    const auto inOrder = [](const SortedName& left, const SortedName& right) {
        return left.start == right.start ? precedes(left.text, right.text) : left.start < right.start;
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
