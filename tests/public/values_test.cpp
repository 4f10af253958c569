// From the text of a value to the typed value: conversion, allowed values, list items, and every message.
#include <cstdlib>

#include "support/fixture.h"

namespace vorn_3_1::public_tests {

TEST(Conversion, textIsReadAsFarAsItGoes) {
    // Texts, each followed by its value, or by "no" where it is refused.
    const struct {
        qel_variant_type_t type;
        const char* table;
    } cases[] = {
        {qel_bool, "0 0  1 1  ~+01x 1  0x1 0  2 no  -1 no  true no"},
        {qel_int, "12abc 12  ~~-7 -7  +5 5  010 10  0x1F 0  1e3 1  -~1 no  +-1 no  x1 no  ~ no"},
        {qel_uint, "4294967295 4294967295  4294967296 no  -1 4294967295"},
        {qel_int64, "9223372036854775807 9223372036854775807  -9223372036854775809 no"},
        {qel_uint64, "-1 18446744073709551615  0x1F 31  0Xfa 250  10h 16  FFH 255  1Ah 26  0x no  h no"},
        // Not hexadecimal throughout, hence decimal as far as it goes.
        {qel_uint64, "1A 1  ff no  0x1g 0  0x1h 0  ~10h 10  ~0x10 0  10hh 10  -1h 18446744073709551615"},
        {qel_double, "2 2  -.5x -0.5  1.5.2 1.5  1e3 1000  0x10 0  1e400 no  nan no"},
    };
    for (const auto& [type, table] : cases) {
        const Texts words = wordsOf(table);
        for (std::size_t i = 0; i < words.size(); i += 2) {
            const Cli cli;
            cli.option("q", type)->positional();
            const bool accepted = cli.parseInto(cli.result, {words[i]}) == "0";
            const variant_t value = cli.result->get("q").value;
            EXPECT_EQ(accepted, words[i + 1] != "no") << type << " '" << words[i] << "'";
            EXPECT_EQ(value.asDouble(), std::atof(words[i + 1].c_str())) << type << " '" << words[i] << "'";
            EXPECT_EQ(value.kind(), accepted ? type : qel_empty) << type << " '" << words[i] << "'";
        }
    }
}

TEST(Conversion, aRefusalNamesTheType) {
    const Texts typeNames = wordsOf(
        "undefined '' '' '' '' '' integer unsigned~integer 64~bit~integer "
        "unsigned~64~bit~or~hex '' double string '' '' '' '' ''");
    const std::string problem =
        "2 Value validation problem in argument 'zz': Option 'first' can not parse 'zz' "
        "value, requires a type '%' here.";
    for (std::size_t type = 0; type < typeNames.size(); ++type) {
        const Cli cli;
        cli.option("first,f", static_cast<qel_variant_type_t>(type))->positional();
        EXPECT_EQ(cli.parse("zz"), type == qel_string ? "0" : filled(problem, typeNames[type]));
        EXPECT_EQ(cli.result->present("first"), type == qel_string);
    }
}

TEST(AllowedValues, areComparedByValueAndForStringsByBeginning) {
    using Allowed = std::vector<variant_t>;
    const Allowed modes = {"fast", "full", "fastest", 5, variant_t::borrowed("ref")};
    const std::string modeList = "'fast', 'full', 'fastest', '', 'ref'";
    const std::string ambiguous = "Ambiguous value for option 'q'. ";
    const std::string refused = "Option 'q' does not allow value '%'. ";
    const struct {
        qel_variant_type_t type;
        Allowed allowed;
        const char* typed;
        std::string stored;  // or the beginning of the message, of which this is the end:
        std::string list;
    } cases[] = {
        {qel_string, modes, "fast", "[fast]", ""},  // equal to one, though it begins another
        {qel_string, modes, "r", "[ref]", ""},
        {qel_string, modes, "fas", ambiguous, modeList},
        {qel_string, modes, "fastestx", refused, modeList},
        {qel_string, modes, "5", refused, modeList},  // an allowed number has no text to match
        {qel_int, {1, 2}, "2x", "[2x]", ""},
        {qel_int, {12, 20}, "1", refused, "'12', '20'"},  // no beginnings here
        {qel_int, {-2.0}, "-2", refused, "'-2'"},         // a negative integer is no double
        {qel_uint, {-1}, "4294967295", refused, "'0'"},   // shown as the nearest unsigned number
        {qel_uint64, {-1}, "18446744073709551615", "[18446744073709551615]", ""},
        {qel_uint64, {18446744073709551616.0}, "18446744073709551615", "[18446744073709551615]", ""},
        {qel_uint64, {0x1FULL}, "20h", refused, "'31'"},
        {qel_double, {2, 0.5}, "2.0", "[2.0]", ""},
        {qel_double, {1.0 / 3, 1e21}, "3", refused, "'0.333333', '1e+21'"},
        {qel_bool, {true}, "0", refused, "'1'"},
    };
    for (const auto& [type, allowed, typed, stored, list] : cases) {
        const Cli cli;
        IOption* const option = cli.option("q", type)->positional();
        for (const variant_t& value : allowed)
            option->allowValue(value);
        const std::string problem = "2 Value validation problem in argument '%': " + stored;
        EXPECT_EQ(cli.parse(typed),
                  list.empty() ? "0" : filled(problem, typed) + "Possible values follows: " + list);
        EXPECT_EQ(cli.values("q"), list.empty() ? stored : "") << typed;
    }
}

TEST(Lists, aTextIsCutAtTheSeparator) {
    // The character after a separator is never tested as one. The item after a trailing one is the NUL character.
    const std::string table =
        "a,b [a][b]  ,a [][a]  a,,b [a][,b]  a, [a][]  , [][]  ,, [][,]  a,,,b [a][,][b]";
    const Texts words = wordsOf(table + "  a;b [a;b]");
    for (std::size_t i = 0; i < words.size(); i += 2) {
        const Cli cli;
        cli.option("list");
        cli.option("semicolons")->tokenize(';');
        cli.option("whole")->tokenize('\0');
        EXPECT_EQ(cli.parse(filled("--list=% --whole=% --semi=%;a,b", words[i])), "0");
        EXPECT_EQ(cli.values("list"), words[i + 1]);
        EXPECT_EQ(cli.values("whole"), "[" + words[i] + "]");
        EXPECT_EQ(cli.values("semicolons"), words[i] == "a;b" ? "[a][b][a,b]" : "[" + words[i] + "][a,b]");
        EXPECT_EQ(cli.occurrences("list").size(), 1U);
    }
}

TEST(Lists, aNumberEndsWithItsItem) {
    for (const qel_variant_type_t type : {qel_int, qel_uint64, qel_double}) {
        const Cli cli;
        cli.option("n", type)->tokenize('0');
        EXPECT_EQ(cli.parse("-n=1025"), "0");
        EXPECT_EQ(cli.result->get("n").value.asInt(), 1);
        EXPECT_EQ(cli.result->next("n").value.asInt(), 25);
    }
}

TEST(Lists, theFirstBadItemRefusesTheWholeOccurrence) {
    const struct {
        std::string items, events, reason;
    } cases[] = {
        {"1,x,2", ":n :n=1 ", "can not parse 'x' value, requires a type 'integer' here."},
        {",1", ":n ", "can not parse '' value, requires a type 'integer' here."},
        {"1,,2", ":n :n=1 ", "can not parse ',2' value, requires a type 'integer' here."},
        {"2,", ":n :n=2 ", "can not parse '"},  // the text ends at the NUL item
    };
    for (const auto& [items, expectedEvents, reason] : cases) {
        const Cli cli;
        cli.option("n", qel_int);
        std::string events;
        Recorder handler(events);
        cli.parser->addHandler(&handler);
        const std::string problem = "2 Value validation problem in argument '-n=%': Option 'n' ";
        EXPECT_EQ(cli.parse("-n=" + items), filled(problem, items) + reason);
        EXPECT_EQ(events, expectedEvents);
        EXPECT_FALSE(cli.result->present("n"));
    }
}

TEST(Lists, theNulItemBeginsNoAllowedValue) {
    const Cli cli;
    IOption* const option = cli.option("m")->allowValue("fast");
    EXPECT_EQ(cli.parse("-m=,f"), "0");  // an empty item does
    EXPECT_EQ(cli.parse("-m=f,"),
              "2 Value validation problem in argument '-m=f,': Option 'm' does not allow value '");
    option->allowValue("");
    EXPECT_EQ(cli.parse("-m=f,"), "0");  // converted, it equals the empty text
    EXPECT_EQ(cli.values("m"), "[fast][fast][fast][]");
}

TEST(ValueSource, isTheSameArgumentOrTheNextOrImplied) {
    const std::string missing = "2 Option 'name' requires a value in argument: '%'";
    const std::string isSwitch =
        "2 Option 'verbose' is boolean and should be declared in form '--option' or "
        "'--no-option' in argument: '%'";
    const std::string looksLikeOption =
        "2 Option 'namereceived value from the next argument: '%', but it seems to be an option. Use "
        "'-option=value' declaration form or make sure that value is not missed";
    const struct {
        std::string line, outcome, stored;
    } cases[] = {
        {"-n=-x -name=a=b --name x -n= x=y -v", "0", "name[-x][a=b][x][x=y] verbose[1] "},
        {"--name", filled(missing, "--name"), ""},
        {"--name '' x", filled(missing, "--name"), ""},
        {"-n= -", filled(looksLikeOption, "-"), ""},
        {"-n -- x", filled(looksLikeOption, "--"), ""},
        {"-v -n -5", filled(looksLikeOption, "-5"), "verbose[1] "},  // what came before stays
        {"--verbose= --no-v=", "0", "verbose[1][0] "},
        {"--verb=1", filled(isSwitch, "--verb=1"), ""},
        {"-v x", "2 Unknown option: x", "verbose[1] "},
        {"-q -q=", "0", "quiet[null][null] "},
        {"-q=1", "2 Option 'quiet'does not requires a value in argument: '-q=1'", ""},
    };
    for (const auto& [line, outcome, stored] : cases) {
        const Cli cli(unknownIsError);
        cli.option("name");
        cli.option("verbose", qel_bool);
        cli.option("quiet", qel_empty);
        EXPECT_EQ(cli.parse(line), outcome);
        EXPECT_EQ(cli.stored("name verbose quiet"), stored) << line;
    }
}

}  // namespace vorn_3_1::public_tests
