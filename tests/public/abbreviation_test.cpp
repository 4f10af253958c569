// How a typed name finds its option: by words, by prefixes, by the best score, or not at all.
#include <map>
#include <random>

#include "support/checked_build.h"
#include "support/fixture.h"
#include "support/plain_rules.h"

namespace vorn_3_1::public_tests {

TEST(Abbreviation, wordsMayBeShortenedAsLongAsOneNameStaysBest) {
    const struct {
        std::string argument, expected;
    } cases[] = {
        {"--out-f=a", "output-file[a] "},
        {"-o-d=a=b", "output-dir[a=b] "},
        {"--out-=a",
         "2 Ambiguous option 'out-' in argument: '--out-=a', could be: 'output-file', 'output-dir'"},
        {"--Verb", "2 Unknown option: --Verb"},
        {"--in=a", "in[a] "},  // in full, before "include"
    };
    for (const auto& [argument, expected] : cases) {
        const Cli cli(unknownIsError);
        const std::string names = "output-file output-dir include in";
        for (const std::string& name : wordsOf(names))
            cli.option(name.c_str());
        const std::string outcome = cli.parse(argument);
        EXPECT_EQ(outcome == "0" ? cli.stored(names) : outcome, expected);
    }
}

struct NamedOption {
    std::string first, synonym;
    bool isSwitch;
};

/// The event that the argument causes, or its error.
static std::string expectedOf(const std::vector<NamedOption>& options, const std::string& argument) {
    const std::string typed = argument.substr(argument.size() > 2 && argument[1] == '-' ? 2 : 1);
    Texts candidates;
    std::map<std::string, std::string> events;
    for (const auto& [first, synonym, isSwitch] : options) {
        for (const std::string& name : {first, synonym}) {
            for (const std::string& form : isSwitch ? Texts{name, "no-" + name} : Texts{name}) {
                const char* const value = form.starts_with("no-") ? "=0 " : "=1 ";  // also of a name in full
                candidates.push_back(form);
                events[form] = ":" + first + (isSwitch ? " :" + first + value : " ");
            }
        }
    }
    const Texts best = vorn_tests::bestMatches(typed, candidates);
    if (argument.size() < 2 || best.empty()) return "2 Unknown option: " + argument;
    return best.size() == 1 ? events[best[0]] : "2 " + vorn_tests::tieError(typed, argument, best);
}

TEST(Abbreviation, everyShortArgumentIsMatchedAsByThePlainRules) {
    const Texts pool = vorn_tests::allTexts("noO-", 6);
    Texts arguments = vorn_tests::allTexts("noO-", 4);
    for (std::size_t i = arguments.size(); i < pool.size(); i += 17)
        arguments.push_back(pool[i]);
    std::mt19937 random(1);
    for (unsigned round = 0; round < 8; ++round) {
        const Cli cli(unknownIsError);
        std::string events;
        Recorder handler(events);
        cli.parser->addHandler(&handler);
        std::vector<NamedOption> options;
        const std::size_t choices = round < 4 ? 100 : pool.size();  // fewer are more alike
        while (options.size() < 100) {
            options.push_back({pool[random() % choices], pool[random() % choices], random() % 2 == 0});
            const auto& [first, synonym, isSwitch] = options.back();
            IOption* const option = cli.option(nullptr, isSwitch ? qel_bool : qel_empty);
            option->synonym(first.c_str())->synonym(synonym.c_str());  // which may be taken
            // Names are looked for while there are more and more of them, sorted or not.
            const std::size_t step =
                (options.size() % 20 == 0 ? 1U : 97U) * (vorn_tests::isChecked ? 7U : 1U);
            for (std::size_t i = random() % step; i < arguments.size(); i += step) {
                const std::string argument = "-" + arguments[i];
                if (argument == "--") continue;  // ends the options
                events.clear();
                const std::string outcome = cli.parse(argument);
                ASSERT_EQ(outcome == "0" ? events : outcome, expectedOf(options, argument)) << options.size();
            }
        }
    }
}

}  // namespace vorn_3_1::public_tests
