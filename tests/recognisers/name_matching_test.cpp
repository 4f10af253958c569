// The tree of names against a search through all of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>

#include "recognisers/decomposed_name.h"
#include "recognisers/word_tree.h"
#include "support/plain_rules.h"

namespace vorn_3_1::internal {

namespace {

std::vector<std::string> namesOf(const std::vector<NameMatch>& matches) {
    std::vector<std::string> names;
    for (const NameMatch& match : matches)
        names.push_back(match.getName());
    std::ranges::sort(names);
    return names;
}

}  // namespace

TEST(WordTree, findsWhatASearchThroughAllNamesFinds) {
    std::vector<std::string> typedNames = vorn_tests::allTexts("noO-", 4);
    const std::vector<std::string> pool = vorn_tests::allTexts("noO-", 6);
    for (std::size_t i = typedNames.size(); i < pool.size(); i += 17)
        typedNames.push_back(pool[i]);
    std::mt19937 random(1);
    for (unsigned round = 0; round < 8; ++round) {
        WordTree tree;
        std::deque<std::string> texts;
        std::vector<RegisteredName> names;
        std::vector<std::string> candidates;
        while (names.size() < 200) {
            const auto ordinal = static_cast<unsigned>(names.size());
            const bool isSwitch = random() % 2 == 0;
            texts.push_back(pool[random() % (round < 4 ? 100 : pool.size())]);  // the more alike or different
            names.push_back({texts.back(), ordinal / 2, ordinal % 2, isSwitch});
            candidates.push_back(texts.back());
            if (isSwitch) candidates.push_back("no-" + texts.back());
            if (names.size() % 40 != 0) continue;  // the tree is used while it grows
            std::ranges::sort(candidates);
            tree.update(names);
            for (const std::string& typed : typedNames) {
                std::vector<NameMatch> matches;
                const DecomposedName words(typed);
                ASSERT_EQ(words.getName(), typed);
                tree.match(words, matches);
                ASSERT_EQ(namesOf(matches), vorn_tests::bestMatches(typed, candidates)) << typed;
            }
        }
    }
}

}  // namespace vorn_3_1::internal
