// Which registrations are refused, how the names text is cut, and what a refusal leaves behind.
#include "support/fixture.h"

namespace vorn_3_1::public_tests {

TEST(Registration, namesTextIsCutAtCommas) {
    // The character after a comma is never tested as a comma. The name after a trailing comma is the NUL
    // character, at which the help text ends.
    const struct {
        std::string names, heading;
    } cases[] = {
        {"a", "-a"}, {"a,b,cd", "-cd, -b, -a"}, {",a", "-a, -"}, {"a,,,b", "-b, -,, -a"}, {"a,b,", "-"}};
    for (const auto& [names, heading] : cases) {
        const Cli cli;
        cli.option(names.c_str(), qel_empty, "d");
        std::string column = heading;
        column.resize(30, ' ');
        EXPECT_EQ(cli.parser->getDescription(), heading == "-" ? heading : column + "d\n\n") << names;
    }
}

TEST(Registration, tooManyNamesAndTakenNamesAreRefused) {
    const auto expectAll = [](const std::string& cases, bool refused, bool clash) {
        for (const std::string& names : wordsOf(cases)) {
            const Cli cli;
            IOption* const fallback = cli.option("1,2,3,4");
            cli.option("switch,s", qel_bool)->synonym("added");
            cli.option("text");
            cli.option("no-negative");
            cli.option("nul,");
            IOption* made = nullptr;
            const std::string error = standardErrorOf([&] { made = cli.option(names.c_str(), qel_bool); });
            EXPECT_EQ(error, clash ? names.substr(0, names.find(',')) + "\n" : "");
            EXPECT_EQ(made == fallback, refused) << names;
        }
    };
    expectAll("'' a,b,cd same,same longer,longest no-no-s No-s swit no-text negative", false, false);
    expectAll("a,b,cde a,b,c,d a,b,c, text,a,b,c", true, false);
    // The first name is written, whichever clashed.
    expectAll("switch new,s ,s no-s new,no-s added no-added text a,b, xyz,text,ab", true, true);
}

TEST(Registration, neitherSynonymsNorTheFallbackAreTested) {
    const Cli cli(unknownIsError);
    IOption* const fallback = cli.option("a,b,c,d");
    fallback->synonym("e")->allowValue("v")->defaultValue("v")->tokenize(';')->positional();
    cli.option("taken");
    EXPECT_EQ(standardErrorOf([&] { cli.option("other")->synonym("taken")->synonym("much-too-long"); }), "");
    EXPECT_EQ(cli.parse("--much-t-l=x"), "0");
    EXPECT_EQ(cli.stored("taken other e"), "taken[x] other[x] ");
    EXPECT_EQ(cli.parse("-ta"), "2 Ambiguous option 'ta' in argument: '-ta', could be: 'taken', 'taken'");
    for (const char* word : {"-a", "-e", "v"})
        EXPECT_EQ(cli.parse(word), std::string("2 Unknown option: ") + word);
}

TEST(Registration, nullTextsCountAsEmptyTexts) {
    const Cli cli;
    cli.parser->option("named", nullptr, qel_string, nullptr)->synonym(nullptr);
    cli.parser->option(nullptr, nullptr, qel_string, nullptr)->defaultValue("d");  // has no names
    EXPECT_EQ(cli.parse("-=x"), "0");  // the empty name in full outweighs the prefix of "named"
    EXPECT_EQ(cli.stored("named ''"), "named[x] [x] ");
}

}  // namespace vorn_3_1::public_tests
