// How a typed name finds its option: by words, by prefixes, by the best score, or not at all.
#include "fixture.h"

namespace vorn_3_1::public_tests {

TEST(Abbreviation, wordsMayBeShortenedAsLongAsOneNameStaysBest) {
    const Texts cases[] = {
        {"--out-f=a", "output-file[a] "},
        {"-o-d=a=b", "output-dir[a=b] "},
        {"--out-=a",
         "2 Ambiguous option 'out-' in argument: '--out-=a', could be: 'output-file', 'output-dir'"},
        {"--ver", "2 Ambiguous option 'ver' in argument: '--ver', could be: 'verbose', 'verify', 'version'"},
        {"-no-ver",
         "2 Ambiguous option 'no-ver' in argument: '-no-ver', could be: 'no-verbose', 'no-version'"},
        {"-n-verb", "verbose[0] "},
        {"--no-verif", "2 Unknown option: --no-verif"},  // only switches have a "no-" form
        {"--Verb", "2 Unknown option: --Verb"},
        {"-colo",
         "2 Ambiguous option 'colo' in argument: '-colo', could be: 'color', 'colour'"},  // one option
        {"--color=a", "color[a] "},
        {"--in=a", "in[a] "},  // in full, before "include"
    };
    for (const Texts& row : cases) {
        const Cli cli(unknownIsError);
        const std::string names = "output-file output-dir verbose verify version color,colour include in";
        for (const std::string& name : wordsOf(names)) {
            cli.option(name.c_str(), name == "verbose" || name == "version" ? qel_bool : qel_string);
        }
        const std::string outcome = cli.parse(row[0]);
        EXPECT_EQ(outcome == "0" ? cli.stored("color " + names) : outcome, row[1]);
    }
}

// A plain second implementation of the matching, to compare with.
struct NamedOption {
    std::string name, synonym;
    bool isSwitch;
};

static Texts cutAtHyphens(const std::string& name) {
    Texts words(1);
    for (char c : name)
        c == '-' ? words.emplace_back() : words.back() += c;
    return words;
}

static int scoreOf(const Texts& typed, const Texts& candidate) {
    if (typed.size() != candidate.size()) return 0;
    int sum = 0;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        if (candidate[i].compare(0, typed[i].size(), typed[i]) != 0) return 0;
        sum += candidate[i] == typed[i] ? 2 : 1;
    }
    return sum;
}

static std::string expectedOf(const std::vector<NamedOption>& options, const std::string& argument) {
    const std::string typed = argument.substr(argument.size() > 2 && argument[1] == '-' ? 2 : 1);
    std::vector<std::pair<std::string, const NamedOption*>> best;
    int bestScore = 1;
    const auto offer = [&](const std::string& name, const NamedOption& option) {
        const int score = scoreOf(cutAtHyphens(typed), cutAtHyphens(name));
        if (score > bestScore) best.clear();
        bestScore = std::max(score, bestScore);
        if (score == bestScore) best.emplace_back(name, &option);
    };
    for (const NamedOption& option : options) {
        for (const std::string& name : {option.name, option.synonym}) {
            offer(name, option);
            if (option.isSwitch) offer("no-" + name, option);
        }
    }
    if (argument.size() < 2 || best.empty()) return "2 Unknown option: " + argument;
    if (best.size() == 1) {
        const char* const value = best[0].first.compare(0, 3, "no-") == 0 ? "[0] " : "[1] ";
        return best[0].second->name + (best[0].second->isSwitch ? value : "[null] ");
    }
    std::string list;
    for (const auto& match : best)
        list += (list.empty() ? "'" : ", '") + match.first + "'";
    return "2 Ambiguous option '" + typed + "' in argument: '" + argument + "', could be: " + list;
}

TEST(Abbreviation, everyShortArgumentMatchesAsInThePlainImplementation) {
    const std::vector<NamedOption> models[] = {
        {{"n", "no", true}, {"o", "on", false}, {"nn", "no-o", false}},
        {{"o", "oo", true}, {"no-no", "o-n", true}, {"n--o", "n-", false}},
        {{"no", "no-n", false}, {"n", "n-o-n", true}, {"-", "--", true}, {"oon", "ono", false}},
        {{"--", "o-", true}, {"n-no", "n-on", false}, {"o--", "o-o-", true}},
    };
    Texts arguments{"-"};
    for (std::size_t i = 0; i < arguments.size() && arguments[i].size() < 6; ++i) {
        for (char c : {'n', 'o', '-'})
            arguments.push_back(arguments[i] + c);
    }
    arguments.erase(std::find(arguments.begin(), arguments.end(), "--"));  // ends the options
    for (const std::vector<NamedOption>& options : models) {
        for (const std::string& argument : arguments) {
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

}  // namespace vorn_3_1::public_tests
