// The search for shortened names against one that compares all words of all names.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "options/registered_option_storage.h"
#include "recognisers/name_search.h"
#include "support/checked_build.h"
#include "support/plain_rules.h"

namespace vorn_3_1::internal {

namespace {

std::vector<std::string> bestOf(NameSearch& search, const std::string& typed, const OptionIndex& index) {
    std::vector<NameMatch> matches;
    search.find(typed, index.names(), matches);
    std::vector<std::string> names;
    for (const NameMatch& match : matches)
        names.push_back((match.negated ? "no-" : "") + std::string(index.names()[match.name].key()));
    std::ranges::sort(names);
    return names;
}

}  // namespace

TEST(NameSearch, findsWhatASearchThroughAllNamesFinds) {
    std::vector<std::string> typedNames = vorn_tests::allTexts("noO-", 4);
    const std::vector<std::string> pool = vorn_tests::allTexts("noO-", 6);
    for (std::size_t i = typedNames.size(); i < pool.size(); i += 17)
        typedNames.push_back(pool[i]);
    std::mt19937 random(1);
    for (unsigned round = 0; round < 8; ++round) {
        Garbage keeper;
        RegisteredOptionStorage storage(&keeper);
        NameSearch search;
        std::vector<std::string> candidates;
        const auto choose = [&] {
            return pool[random() % (round < 4 ? 100 : pool.size())];
        };  // the more alike
        while (storage.index().names().size() < 200) {
            const std::string name = choose();
            const bool isSwitch = random() % 2 == 0;
            IOption* option = storage.option(nullptr, "", isSwitch ? tamsu2::qel_bool : tamsu2::qel_int, "");
            option->synonym(name.c_str());
            candidates.push_back(name);
            if (isSwitch) candidates.push_back("no-" + name);
            std::ranges::sort(candidates);
            // Names are looked for while there are more and more of them, sorted or not.
            const std::size_t step =
                (storage.index().names().size() % 40 == 0 ? 1U : 97U) * (vorn_tests::isChecked ? 7U : 1U);
            for (std::size_t i = random() % step; i < typedNames.size(); i += step) {
                ASSERT_EQ(bestOf(search, typedNames[i], storage.index()),
                          vorn_tests::bestMatches(typedNames[i], candidates))
                    << typedNames[i];
            }
        }
    }
}

}  // namespace vorn_3_1::internal
