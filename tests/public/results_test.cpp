// What a result answers to a host: cursors, texts, defaults, and what several parses leave.
#include "support/fixture.h"

namespace vorn_3_1::public_tests {

TEST(Cursors, ofValuesAndOfArgumentsWalkApart) {
    const Cli cli;
    cli.option("x");
    IParseResult& result = *cli.result;
    const char* text = nullptr;
    EXPECT_EQ(result.getNextArgument(&text), 1);  // nothing is begun yet
    ASSERT_EQ(cli.parse("--x=a,b -- p q"), "0");
    EXPECT_STREQ(getLastValue(&result, "x").text, "b");
    const Value first = result.get("x");
    EXPECT_STREQ(first.text, "a");
    EXPECT_STREQ(getLastValue(&result, "x", 0, first.position).text, "a");
    EXPECT_STREQ(result.next("x").text, nullptr);
    EXPECT_STREQ(result.get("x").text, "a");
    EXPECT_EQ(result.getFirstArgument(&text), 0);
    EXPECT_STREQ(result.next("whatever").text, "b");
    EXPECT_EQ(result.getNextArgument(&text), 0);
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
    ASSERT_EQ(cli.parse("--x=,a,a -- a ''"), "0");
    cli.parser->destroy();
    cli.parser = nullptr;
    const Value empty = cli.result->get("x");
    const Value first = cli.result->next("x");
    EXPECT_STREQ(first.as<const char*>(), "a");
    EXPECT_EQ(cli.result->next("x").text, first.text);
    const char* argument = nullptr;
    EXPECT_EQ(cli.result->getFirstArgument(&argument), 0);
    EXPECT_EQ(argument, first.text);
    EXPECT_EQ(cli.result->getNextArgument(&argument), 0);
    EXPECT_EQ(argument, empty.text);
    EXPECT_EQ((Value{"a", 1, 0, 1}).as<const char*>(), nullptr);
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
        cli.option("o", type)->defaultValue("replaced")->defaultValue(value);
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

TEST(Accumulation, ofTwoParsersGoesByNames) {
    const Cli first, second;
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
