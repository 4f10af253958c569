// What a result answers: ranges of positions, the shared cursors, defaults, and every name of an option.
#include "fixture.h"

namespace vorn_3_1::public_tests {

TEST(Ranges, occurrencesAreHalfOpenAndValuesInclusive) {
    const Cli cli;
    cli.option("x");
    ASSERT_EQ(cli.parse("--x=a --x=b,c --x=d"), "0");
    const std::vector<int> at = cli.occurrences("x");
    const int first = at.at(0);  // each followed by its values: 0 a, 2 b c, 5 d
    ASSERT_EQ(at, (std::vector<int>{first, first + 2, first + 5}));
    // The bounds, counted from there, and the values between them. In 12, a's value lies inside, but not its
    // occurrence. In 13, the second occurrence opens the range, and the values start at its low end.
    const Texts cases = wordsOf(
        "07 [a][b][c][d] 00 '' 01 [a] 12 '' 13 [a][b] 23 [b] 24 [b][c] 35 '' 36 [b][c][d] "
        "46 [c][d] 68 '' 52 ''");
    expectMiss(cli.result->get("x", first + 1, first + 2));
    EXPECT_STREQ(cli.result->next("x").text, "a");  // only a missing name ends the iteration
    for (std::size_t i = 0; i < cases.size(); i += 2) {
        const int low = first + cases[i][0] - '0', high = first + cases[i][1] - '0';
        const std::string& values = cases[i + 1];
        EXPECT_EQ(cli.values("x", low, high), values) << cases[i];
        EXPECT_EQ(cli.result->present("x", low, high), !values.empty()) << cases[i];
        if (values.empty()) continue;
        EXPECT_EQ(cli.result->next("x").text[0], values[1]);
        EXPECT_EQ(getLastValue(cli.result, "x", low, high).text[0], values[values.size() - 2]);
    }
}

TEST(Ranges, ofAnOptionWithoutValuesAreNotBoundedAbove) {
    const Cli cli;
    cli.option("q", qel_empty);
    ASSERT_EQ(cli.parse("-q -q -q"), "0");
    const int first = cli.occurrences("q").at(0);
    const Value value = cli.result->get("q", first + 1, first + 2);
    EXPECT_TRUE(value.text == nullptr && value.status == 0 && value.value.kind() == qel_empty);
    EXPECT_EQ(value.position, first + 1);
    EXPECT_EQ(cli.result->next("q").position, first + 2);
    expectMiss(cli.result->next("q"));
    EXPECT_EQ(cli.result->nextPosition(), INT_MAX);
    EXPECT_TRUE(cli.result->present("q", first, first + 1));
    EXPECT_EQ(cli.result->nextPosition(), first);  // one cursor for both
    EXPECT_EQ(cli.result->next("q").position, first + 1);
    EXPECT_EQ(getLastValue(cli.result, "q", first, first + 1).position, first + 2);
}

TEST(Cursors, areSharedByAllNames) {
    const Cli cli;
    cli.option("x");
    cli.option("y");
    IParseResult& result = *cli.result;
    const char* text = nullptr;
    expectMiss(result.next("x"));  // nothing is begun yet
    EXPECT_EQ(result.nextPosition(), INT_MAX);
    EXPECT_EQ(result.getNextArgument(&text), 1);
    ASSERT_EQ(cli.parse("--x=a,b --y=c,d --x=e -- p q"), "0");
    const int first = result.get("x").position - 1;
    EXPECT_STREQ(result.next("whatever").text, "b");
    EXPECT_EQ(result.nextPosition(), first);  // get leaves it at the occurrence found
    EXPECT_EQ(result.nextPosition(), first + 6);
    EXPECT_STREQ(result.get("y").text, "c");
    EXPECT_EQ(result.getFirstArgument(&text), 0);
    EXPECT_STREQ(result.next("x").text, "d");
    EXPECT_EQ(result.getNextArgument(&text), 0);  // walks on its own
    EXPECT_EQ(result.getNextArgument(&text), 1);
    EXPECT_STREQ(text, "q");
    for (const char* missing : {static_cast<const char*>(nullptr), "z", "X", ""}) {
        EXPECT_TRUE(result.present("x"));
        expectMiss(result.get(missing));
        expectMiss(result.next("x"));  // the miss has ended the iteration
        EXPECT_FALSE(result.present(missing));
        expectMiss(getLastValue(&result, missing));
    }
    expectMiss(getLastValue(nullptr, "x"));
}

TEST(Results, equalTextsAreOnePointerAndOutliveTheParser) {
    Cli cli;
    cli.option("x");
    ASSERT_EQ(cli.parse("--x=a,a -- a"), "0");
    cli.parser->destroy();
    cli.parser = nullptr;
    const Value first = cli.result->get("x");
    const char* argument = nullptr;
    EXPECT_EQ(cli.result->getFirstArgument(&argument), 0);
    EXPECT_STREQ(first.as<const char*>(), "a");
    EXPECT_TRUE(argument == first.text && cli.result->next("x").text == first.text);
    EXPECT_EQ((Value{"a", 1, 0, 1}).as<const char*>(), nullptr);
}

TEST(Defaults, answerOnceAndWhateverTheRange) {
    const Cli cli;
    cli.option("level,l", qel_int)->defaultValue(6)->defaultValue(7);
    ASSERT_EQ(cli.parse(""), "0");
    IParseResult& result = *cli.result;
    const Value value = result.get("level", 5, 4);
    EXPECT_TRUE(value.status == 0 && value.text == std::string("7") && value.value == variant_t(7));
    expectMiss(result.next("level"));
    EXPECT_EQ(result.nextPosition(), INT_MAX);
    EXPECT_EQ(result.get("l").position, value.position + 1);  // each name draws its own
    EXPECT_TRUE(result.present("level", 5, 4));
    EXPECT_EQ(result.next("level").position, value.position);
    expectMiss(result.next("level"));
    expectMiss(result.next("level"));
    EXPECT_EQ(cli.values("level", INT_MAX, INT_MAX), "[7][7]");  // leaves the state that present leaves
    EXPECT_STREQ(getLastValue(&result, "level", 5, 4).text, "7");

    ASSERT_EQ(cli.parse("--level=8"), "0");
    EXPECT_EQ(cli.values("level"), "[8]");  // given: the default is out of the way
    expectMiss(result.get("level", 0, 1));
    EXPECT_FALSE(result.present("level", 0, 1));
}

TEST(Defaults, areRenderedByTheOptionsType) {
    const struct {
        qel_variant_type_t type;
        variant_t value;
        const char* stored;
    } cases[] = {{qel_bool, false, "o[0] "},
                 {qel_bool, 7, "o[1] "},
                 {qel_double, 1.0 / 3, "o[0.333333] "},
                 {qel_int, 2.7, "o[2] "},
                 {qel_string, variant_t::borrowed("text"), "o[text] "},
                 {qel_string, "", ""},  // counts as not given, as all that render empty
                 {qel_string, 7, ""},
                 {qel_wstring, L"text", ""},
                 {qel_empty, "text", ""}};
    for (const auto& [type, value, stored] : cases) {
        const Cli cli;
        cli.option("o", type)->defaultValue(value);
        ASSERT_EQ(cli.parse(""), "0");
        EXPECT_EQ(cli.stored("o"), stored) << type;
        EXPECT_EQ(cli.result->get("o").value.kind(), *stored == '\0' ? qel_empty : value.kind()) << type;
    }
}

TEST(Accumulation, aSecondParseAppendsAndPositionsRise) {
    const Cli cli, other;
    cli.option("x", qel_int);
    cli.option("d,e", qel_int)->defaultValue(1);
    ASSERT_EQ(cli.parse("-x=1 -- p"), "0");
    const int start = cli.result->get("d").position;
    ASSERT_EQ(cli.parse("-x=2 -- q --"), "0");
    EXPECT_EQ(cli.values("x"), "[1][2]");
    EXPECT_EQ(cli.passedThrough(), "[p][q][--]");
    EXPECT_EQ(cli.result->get("d").position, start + 5);  // d, e, x, its value, p
    EXPECT_EQ(cli.occurrences("x"), (std::vector<int>{start + 2, start + 7}));
    EXPECT_EQ(cli.parse("-x=3,no").substr(0, 1), "2");  // draws four, stores nothing
    other.option("x", qel_empty);                       // one counter for all parsers
    ASSERT_EQ(other.parse("-x"), "0");
    EXPECT_EQ(other.occurrences("x").at(0), start + 15);
    EXPECT_EQ(cli.values("x"), "[1][2]");
}

TEST(Names, mayPartWhileTheyAreRead) {
    const Cli cli;
    cli.option("x,s");
    cli.option("y")->synonym("s");
    ASSERT_EQ(cli.parse("--x=1"), "0");
    ASSERT_EQ(cli.result->get("s").status, 0);
    ASSERT_EQ(cli.parse("--y=2"), "0");  // s is y's now
    ASSERT_EQ(cli.parse("--x=3"), "0");  // and both options' from here on
    EXPECT_STREQ(cli.result->next("s").text, "3");
    EXPECT_EQ(cli.stored("x y s"), "x[1][3] y[2] s[2][3] ");
}

TEST(Names, allHoldWhatWasStoredSinceTheyWereThere) {
    const Cli cli, results;
    IOption* const option = cli.option("long-name,l")->synonym("other");
    ASSERT_EQ(cli.parse("-l=a --lo-n=b --oth=c"), "0");
    option->synonym("late");
    ASSERT_EQ(cli.parse("--late=d"), "0");
    EXPECT_EQ(cli.stored("long-name l other late lo-n"),
              "long-name[a][b][c][d] l[a][b][c][d] other[a][b][c][d] late[d] ");

    cli.option("x,x,y");  // a name that stands twice is appended to twice
    ASSERT_EQ(cli.parse("-y=a -y=b"), "0");
    EXPECT_EQ(cli.stored("x y"), "x[a][b][b] y[a][b] ");

    cli.option("m,n", qel_int);  // likewise when another option's names are the same one
    cli.option("", qel_int)->synonym("m")->synonym("m")->positional();
    ASSERT_EQ(cli.parse("-n=1 5"), "0");
    EXPECT_EQ(cli.stored("m n"), "m[1][5][5] n[1] ");

    cli.option("a,alpha");  // a shared name is replaced by an option's first store
    cli.option("b")->synonym("a");
    ASSERT_EQ(cli.parse("--alpha=1 -b=2 --alpha=3 -b=4"), "0");
    EXPECT_EQ(cli.stored("alpha a b"), "alpha[1][3] a[2][3][4] b[2][4] ");
    ASSERT_EQ(cli.parseInto(results.result, {"-b=1", "--alpha=2"}), "0");  // "a" is there, "alpha" is not
    EXPECT_EQ(results.stored("alpha a b"), "alpha[2] a[1][2] b[1] ");
    EXPECT_EQ(results.occurrences("a").size(), 2U);

    const Cli first, second;  // two parsers fill one result
    for (const Cli* one : {&first, &second}) {
        one->option("c,gamma")->defaultValue("C");
        one->option("d")->synonym("c")->defaultValue("D");
        one->option("x,y");
        ASSERT_EQ(one->parseInto(first.result, {"-x=1", "-y=2"}), "0");
    }
    EXPECT_EQ(first.stored("c gamma d x y"), "c[D] gamma[C] d[D] x[1][2][1][2] y[1][2][1][2] ");
    ASSERT_EQ(first.parse("--gamma=3"), "0");
    EXPECT_EQ(first.stored("c gamma d"), "c[3] gamma[3] d[D] ");
}

}  // namespace vorn_3_1::public_tests
