// Which names a shortened name may stand for.
#ifndef VORN_RECOGNISERS_NAME_SEARCH_H
#define VORN_RECOGNISERS_NAME_SEARCH_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "options/option_index.h"

namespace vorn_3_1::internal {

/// Compares a typed name with registered names, word by word. Every '-' ends a word, which may be empty.
///
/// A few typed names are compared with all names: that costs less than to bring names in order. Only when names have
/// been looked at often enough are they sorted, and from then on most of them are skipped: all between one name and
/// the next that may match. The order is kept as runs, each more than twice as long as the next, so that names which
/// are registered between two parses are sorted a few times each, however many there are.
///
/// Belongs to the parser, since names are only ever added to a registry.
class NameSearch {
public:
    /// Sets `best` to the names, and "no-" forms, with as many words as the typed one, all of which begin with the
    /// typed words: those of which the fewest words are shortened, in no particular order.
    void find(std::string_view typed, const std::vector<RegisteredName>& names, std::vector<NameMatch>& best);

private:
    struct Query;
    struct SortedName {
        std::string_view text;
        std::uint32_t start;  // of the text, as a number
        unsigned number;      // in the index
    };

    void sortWhenWorthIt(const std::vector<RegisteredName>& names);
    void search(Query& query) const;
    static void searchRun(const SortedName* first, const SortedName* end, Query& query);

    std::vector<SortedName> sorted;    // in runs
    std::vector<std::size_t> runEnds;  // in `sorted`
    std::size_t comparisons = 0;       // with names that are not sorted yet
};

}  // namespace vorn_3_1::internal

#endif
