// Which bare arguments the positional option takes, under each flag.
#include "support/fixture.h"

namespace vorn_3_1::public_tests {

TEST(Positional, flagsDecideWhatIsTaken) {
    const int hyphen = hyphenNotPositional, repeat = positionalRepeat, after = positionalAfterTerminator;
    const struct {
        int flags;
        const char* arguments;
        const char* stored;
        const char* passedThrough;
    } cases[] = {
        {0, "a -v b,c", "verbose[1] file[a][b][c] ", ""},
        {0, "-u - --u", "file[-u][-][--u] ", ""},
        {0, "''", "file[null] ", ""},
        {0, "--file=a b --second=c", "file[a][b] second[c] ", ""},
        {0, "a -- b", "file[a] ", "[b]"},
        {~30, "-u a -- b", "file[-u][a] ", "[b]"},  // all bits without a meaning
        {unknownIsError, "-u a -- b", "file[-u][a] ", "[b]"},
        {hyphen, "-u a - -v --", "verbose[1] file[a] ", ""},
        {hyphen, "''", "file[null] ", ""},
        {repeat, "-v a -v --file=b -- c", "verbose[1] file[a][-v][--file=b][--][c] ", ""},
        {repeat | hyphen, "-u a -u", "file[a][-u] ", ""},
        {repeat, "-- a", "", "[a]"},
        {after, "a -- b -v -- ''", "file[a][b][-v][--] ", "[b][-v][--][]"},
        {after | hyphen, "-u -- -u", "file[-u] ", "[-u]"},
        {after | repeat, "-- a b", "file[a][b] ", "[a][b]"},
    };
    for (const auto& [flags, arguments, stored, passedThrough] : cases) {
        const Cli cli(flags);
        cli.option("verbose", qel_bool);
        cli.option("file")->positional();
        cli.option("second")->positional();  // never takes any
        EXPECT_EQ(cli.parse(arguments), "0");
        EXPECT_EQ(cli.stored("verbose file second"), stored) << flags << ": " << arguments;
        EXPECT_EQ(cli.passedThrough(), passedThrough) << flags << ": " << arguments;
    }
}

TEST(Positional, aBadValueEndsTheParse) {
    const std::string problem =
        "2 Value validation problem in argument 'x': Option 'n' can not parse 'x' value, "
        "requires a type 'integer' here.";
    for (int flags : {0, 4, 16}) {
        const Cli cli(flags);
        cli.option("n", qel_int)->positional();
        EXPECT_EQ(cli.parse(flags == 4 ? "-- 1 x 2" : "1 x 2"), problem);
        EXPECT_EQ(cli.values("n"), "[1]");
        EXPECT_EQ(cli.passedThrough(), flags == 4 ? "[1][x]" : "");  // the refused one is kept, too
    }
}

TEST(Positional, anOptionWithoutNamesThrowsWhereItsNameIsNeeded) {
    const Cli cli(positionalAfterTerminator);
    cli.option("")->positional();
    EXPECT_EQ(cli.parse("--"), "0");
    EXPECT_EQ(cli.parse("a"), "4 Unidentified problem detected.");
    EXPECT_EQ(cli.parse("-- a b"), "3 ");  // with the error text at hand, which is empty
    EXPECT_EQ(cli.passedThrough(), "[a]");
    const Cli none(positionalAfterTerminator | unknownIsError);
    EXPECT_EQ(none.parse("-- a"), "0");
    EXPECT_EQ(none.parse("a"), "2 Unknown option: a");
}

}  // namespace vorn_3_1::public_tests
