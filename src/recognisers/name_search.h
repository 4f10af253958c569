// Which names a shortened name may stand for.
//
// The recogniser of named options asks it for what the index has not found as a whole name. With the names output-file,
// output-dir and the switch notify:
//
//     typed     best                           because
//     o-f       output-file                    as many words, and each begins so
//     out       none                           output-file has two words
//     output-   output-file, output-dir        an empty word begins every word: the recogniser calls it ambiguous
//     no-not    notify, negated                notify is a switch: what follows "no-" is looked for as well
//     n-notify  notify, negated                "no" may be shortened, too
#ifndef VORN_RECOGNISERS_NAME_SEARCH_H
#define VORN_RECOGNISERS_NAME_SEARCH_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "options/option_index.h"
#include "recognisers/word_tree.h"

namespace vorn_3_1::internal {

/// Compares a typed name with registered names, word by word. Every '-' ends a word, which may be empty.
///
/// A few typed names are compared with all names: that costs less than to bring names in order. Only when names have
/// been looked at often enough is a tree of words made of them, and from then on most of them are skipped. Each tree
/// is more than twice as large as the next, so that names which are registered between two parses are put into a tree
/// a few times each, however many there are. Of a thousand shortened names among 2000, each takes 3500 instructions with
/// the trees and 56000 without.
///
/// Belongs to the parser, since names are only ever added to a registry.
class NameSearch {
public:
    /// Sets `best` to the names, and "no-" forms, with as many words as the typed one, all of which begin with the
    /// typed words: those of which the fewest words are shortened, in no particular order.
    void find(std::string_view typed, const std::vector<RegisteredName>& names, std::vector<NameMatch>& best);

private:
    struct Query;

    void growTrees(const std::vector<RegisteredName>& names);
    void search(Query& query);

    std::vector<WordTree> trees;  // of the first names, in their order
    std::size_t namesInTrees = 0;
    std::size_t comparisons = 0;           // with names that are in no tree yet
    std::vector<WordTree::Match> matches;  // kept for its memory
};

}  // namespace vorn_3_1::internal

#endif
