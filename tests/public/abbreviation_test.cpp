// How a typed name finds its option: by words, by prefixes, by the best score, or not at all.
#include <map>

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
    std::string name, synonym;
    bool isSwitch;
};

static std::string expectedOf(const std::vector<NamedOption>& options, const std::string& argument) {
    const std::string typed = argument.substr(argument.size() > 2 && argument[1] == '-' ? 2 : 1);
    Texts candidates;
    std::map<std::string, std::string> stored;
    for (const auto& [first, synonym, isSwitch] : options) {
        for (const std::string& name : {first, synonym}) {
            candidates.push_back(name);
            stored[name] = first + (isSwitch ? name.starts_with("no-") ? "[0] " : "[1] " : "[null] ");
            if (!isSwitch) continue;
            candidates.push_back("no-" + name);
            stored[candidates.back()] = first + "[0] ";
        }
    }
    const Texts best = vorn_tests::bestMatches(typed, candidates);
    if (argument.size() < 2 || best.empty()) return "2 Unknown option: " + argument;
    return best.size() == 1 ? stored[best[0]] : "2 " + vorn_tests::tieError(typed, argument, best);
}

TEST(Abbreviation, everyShortArgumentMatchesAsByThePlainRules) {
    const std::vector<NamedOption> models[] = {
        {{"n", "no", true}, {"o", "on", false}, {"nn", "no-o", false}},
        {{"o", "oo", true}, {"no-no", "o-n", true}, {"n--o", "n-", false}},
        {{"no", "no-n", false}, {"n", "n-o-n", true}, {"-", "--", true}, {"oon", "ono", false}},
        {{"--", "o-", true}, {"n-no", "n-on", false}, {"o--", "o-o-", true}},
    };
    const Texts texts = vorn_tests::allTexts("no-", 5);
    for (const std::vector<NamedOption>& options : models) {
        for (const std::string& text : texts) {
            const std::string argument = "-" + text;
            if (argument == "--") continue;  // ends the options
            const Cli cli(unknownIsError);
            std::string names;
            for (const auto& [name, synonym, isSwitch] : options) {
                cli.option(name.c_str(), isSwitch ? qel_bool : qel_empty)->synonym(synonym.c_str());
                names += name + " ";
            }
            const std::string outcome = cli.parse(argument);
            EXPECT_EQ(outcome == "0" ? cli.stored(names) : outcome, expectedOf(options, argument)) << names;
        }
    }
}

TEST(Abbreviation, aNameMayHaveAnyNumberOfWords) {
    const Cli cli(unknownIsError);
    std::string name, typed = "-";
    for (unsigned i = 0; i < 80000; ++i) {
        name += "word-";
        typed += i % 2 == 0 ? "w-" : "-";
    }
    cli.option(name.c_str(), qel_empty);
    cli.option((name + "longer").c_str(), qel_empty);
    cli.option((name + "last").c_str(), qel_empty);
    for (unsigned i = 0; i < 70; ++i)  // so many that they are brought in order on the way
        cli.option(("other-name" + std::to_string(i)).c_str(), qel_empty);
    for (unsigned i = 0; i < 40; ++i)
        EXPECT_EQ(cli.parse(typed + "lo"), "0");
    EXPECT_EQ(cli.occurrences((name + "longer").c_str()).size(), 40u);
    EXPECT_EQ(cli.parse(typed + "x").substr(0, 18), "2 Unknown option: ");
}

}  // namespace vorn_3_1::public_tests
