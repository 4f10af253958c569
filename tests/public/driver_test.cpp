// Result codes, the last error, texts with one argument per line, bad calls, rehearsals, and exceptions.
#include <locale>
#include <stdexcept>

#include "support/fixture.h"
#include "support/plain_rules.h"

namespace vorn_3_1::public_tests {

TEST(Driver, theLastErrorStaysUntilTheNext) {
    const Cli cli(unknownIsError);
    EXPECT_STREQ(cli.parser->getErrorDesc(), "");
    EXPECT_EQ(cli.parse("x"), "2 Unknown option: x");
    const char* const error = cli.parser->getErrorDesc();
    EXPECT_EQ(cli.parse("-- y"), "0");
    EXPECT_EQ(cli.parser->getErrorDesc(), error);
    EXPECT_EQ(cli.parse("y"), "2 Unknown option: y");
    EXPECT_STREQ(error, "Unknown option: x");
}

TEST(Driver, aLineOfATextIsOneArgument) {
    const struct {
        std::string text, arguments;
    } cases[] = {
        {"", ""},
        {"\n\r\n \t\r\n", ""},
        {"a", "[a]"},
        {"  -a\n#c\n;c\n\n-b=1 \r", "[-a][-b=1 ]"},
        {" \t\v\f\r a b\t \r\r\na\rb\n", "[a b\t ][a\rb]"},
        {"a \r \r\n", "[a \r ]"},
        {"  ; c\n\t# c\na;b#c\n'a b' \"\\n\"", "[a;b#c]['a b' \"\\n\"]"},  // no quotes, no escapes
        {"\xE4\xFF\n", "[\xE4\xFF]"},
    };
    for (const auto& [text, arguments] : cases) {
        const Cli cli;
        EXPECT_EQ(cli.parseStream(("--\n" + text).c_str()), "0");
        EXPECT_EQ(cli.passedThrough(), arguments);
    }
}

TEST(Driver, aTextIsParsedLikeAVectorWithoutDefaults) {
    const Cli cli(unknownIsError);
    cli.option("name")->defaultValue("d");
    cli.option("level", qel_int)->defaultValue(1);
    EXPECT_EQ(cli.parseStream("# first\n--name\n a b \r\n--na=c\n--\n-x"), "0");
    EXPECT_EQ(cli.stored("name level") + cli.passedThrough(), "name[a b ][c] [-x]");
    EXPECT_EQ(cli.parseStream("--name=d\n-x\n--name=e"), "2 Unknown option: -x");
    EXPECT_EQ(cli.values("name"), "[a b ][c][d]");
    EXPECT_EQ(cli.parseStream(nullptr), "0");
}

struct UnderscoreIsBlank : std::ctype<char> {
    UnderscoreIsBlank() : std::ctype<char>(table()) {}
    static const mask* table() {
        static std::vector<mask> masks(classic_table(), classic_table() + table_size);
        masks['_'] = space;
        return masks.data();
    }
};

TEST(Driver, theGlobalLocaleOfTheMomentDecidesOnBlanksAndNumbers) {
    const Cli cli;
    cli.option("int", qel_int, "d")->defaultValue(-1234567);
    cli.option("double", qel_double)->defaultValue(1234.5);
    cli.option("hex", qel_uint64)->allowValue(0x10000ULL)->tokenize('\0');
    EXPECT_EQ(cli.parseStream("--\n_a"), "0");
    const std::locale before = std::locale::global(
        {{std::locale::classic(), new vorn_tests::CommaPunctuation}, new UnderscoreIsBlank});
    EXPECT_EQ(cli.parseStream("_--hex\n10000h\n_--\n__ _b_\n_#c"), "0");
    EXPECT_EQ(cli.passedThrough(), "[_a][b_]");
    EXPECT_EQ(cli.parseInto(cli.result, {"--hex=0x5"}),
              "2 Value validation problem in argument '--hex=0x5': Option 'hex' does not allow value '0x5'. "
              "Possible values follows: '6.55.36'");
    EXPECT_EQ(cli.stored("int double hex"), "int[-1.23.45.67] double[12.34,5] hex[10000h] ");
    EXPECT_STREQ(cli.parser->getDescription(), "-int=<integer> (-1.23.45.67)  d\n\n");
    const std::locale comma = std::locale::global(before);
    std::string events;
    Recorder handler(events);
    handler.atOption = [&] { std::locale::global(comma); };
    cli.parser->addHandler(&handler);
    EXPECT_EQ(cli.parse("--int=1.23"), "0");
    EXPECT_EQ(cli.result->get("int").value.asInt(), 123);
    std::locale::global(before);
}

TEST(Driver, argumentsOfAnyLengthKeepTheirValues) {
    const Cli cli(unknownIsError);
    cli.option("text")->tokenize('\0');
    Texts arguments, values;
    for (std::size_t length = 1; length < 9000; length += 7) {
        values.emplace_back(length % 900, 'x');
        if (length % 40 == 0) values.back().resize(length, 'y');
        values.back() += std::to_string(length);
        arguments.insert(arguments.end(), {"--text", values.back()});
    }
    EXPECT_EQ(cli.parseInto(cli.result, arguments), "0");
    for (Value value = cli.result->get("text"); value.status == 0; value = cli.result->next("text")) {
        ASSERT_FALSE(values.empty());
        EXPECT_EQ(value.text, values.front());
        values.erase(values.begin());
    }
    EXPECT_EQ(values, Texts());
}

TEST(Driver, badCallsAnswerWithThree) {
    const Cli cli(unknownIsError);
    EXPECT_EQ(createParser(nullptr), 3);
    EXPECT_EQ(cli.parser->createResult(nullptr), 3);
    cli.option("v", qel_bool);
    cli.option("d", qel_int)->defaultValue(1);
    cli.parse("x");
    char text[] = "-v";
    char* argv[] = {text, text, nullptr};
    EXPECT_EQ(cli.outcome(cli.parser->parseArgsVector(3, argv, cli.result)), "3 Unknown option: x");
    EXPECT_EQ(cli.stored("v d"), "d[1] ");  // nothing was parsed
    EXPECT_EQ(cli.result->getFirstArgument(nullptr), 3);
    EXPECT_EQ(cli.parse("-- p"), "0");
    EXPECT_EQ(cli.result->getFirstArgument(nullptr), 3);
    EXPECT_EQ(cli.result->getNextArgument(nullptr), 3);
}

TEST(Driver, aNullResultMakesARehearsal) {
    const Cli cli(positionalAfterTerminator);
    cli.option("n", qel_int)->positional()->defaultValue(1);
    std::string events;
    Recorder handler(events);
    cli.parser->addHandler(&handler);
    EXPECT_EQ(cli.parseInto(nullptr, {"-n=1,2", "3", "--", "4"}), "0");
    EXPECT_EQ(events, ":n :n=1 :n=2 :n :n=3 :n :n=4 ");
    EXPECT_EQ(cli.parseInto(nullptr, {"--", "x"}),
              "2 Value validation problem in argument 'x': Option 'n' can not "
              "parse 'x' value, requires a type 'integer' here.");
    EXPECT_EQ(cli.parser->parseStream("-n\n5", nullptr), 0);
}

TEST(Driver, whatAHandlerDoesToTheHostsArgumentsComesTooLate) {
    const Cli cli(unknownIsError);
    cli.option("n")->positional();
    char first[] = "-n=1";
    char second[] = "2";
    char* argv[] = {first, first, second, nullptr};
    std::string events;
    Recorder handler(events);
    handler.atOption = [&] { first[3] = second[0] = 'x', argv[2] = nullptr; };
    cli.parser->addHandler(&handler);
    EXPECT_EQ(cli.outcome(cli.parser->parseArgsVector(3, argv, cli.result)), "0");
    EXPECT_EQ(events, ":n :n=1 :n :n=2 ");
}

TEST(Driver, exceptionsOfHandlersEndTheParse) {
    const auto fail = []() -> bool { throw std::runtime_error("from a handler"); };
    for (const char event : {'o', 'v', 'u'}) {
        const Cli cli(positionalAfterTerminator | hyphenNotPositional);
        cli.option("n")->positional();
        std::string events;
        Recorder handler(events);
        if (event == 'o') handler.atOption = fail;
        if (event == 'v') handler.atValue = [&](const Value&) { return fail(); };
        if (event == 'u') handler.atUnknown = fail;
        cli.parser->addHandler(&handler);
        const char* const argument = event == 'u' ? "-x" : "a";
        EXPECT_EQ(cli.parse(argument), "4 Unidentified problem detected.");
        EXPECT_EQ(cli.parseStream(argument), "4 Unidentified problem detected.");
        EXPECT_EQ(cli.parse("-- -x"), event == 'u' ? "0" : "3 ");
        EXPECT_EQ(cli.passedThrough(), "[-x]");

        handler.atValue = nullptr;
        handler.atOption = [] { throw 42; };  // what is no std::exception is the host's own
        EXPECT_THROW(cli.parse("a"), int);
        handler.atOption = nullptr;
        events.clear();
        EXPECT_EQ(cli.parse("b"), "0");
        EXPECT_EQ(events, ":n :n=b ");
    }
}

}  // namespace vorn_3_1::public_tests
