// What a reviewer found wrong: each of these was read, said or lost otherwise.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "vorn/host.h"

namespace {

namespace host = vorn::host;
using Texts = std::vector<std::string>;

TEST(Review, laterSettingsReplaceThoseOfTheOuterParser) {
    host::Parser parser("tool");
    const auto define = parser.add<std::string>("define", "").repeated().global().key();
    parser.settings("--define=first\n", "one");
    parser.settings("--define=second\n", "two");
    parser.command("add", "").settings("--define=third\n", "three");
    EXPECT_EQ(parser.parse({"add"}).result()[define], Texts{"third"});
}

TEST(Review, aDecimalIsTooLargeByItsMagnitude) {
    host::Parser parser("tool");
    const auto number = parser.add<double>("number", "").defaultTo(1).key();
    const std::string zeros(400, '0');
    const struct {
        std::string typed;
        bool isRead;
    } rows[] = {
        {"1" + zeros + "e-5", false},  // a small exponent behind many digits
        {"0." + zeros + "1", true},    // 0, without an exponent
        {"0." + zeros + "1e+2", true},     {"0." + zeros + "1e900", false},
        {"1e-99999999999999999999", true}, {"-1e99999999999999999999", false},
    };
    for (const auto& row : rows) {
        host::Outcome outcome = parser.parse({"--number=" + row.typed});
        EXPECT_EQ(static_cast<bool>(outcome), row.isRead) << row.typed;
        if (row.isRead) {
            EXPECT_EQ(outcome.result()[number], 0.0) << row.typed;
        }
    }
}

TEST(Review, aNegativeNumberGoesBehindAnArgumentThatMayBeLeftOut) {
    host::Parser parser("tool");
    const auto name = parser.addPositional<std::string>("name", "").defaultTo("x").key();
    const auto number = parser.addPositional<int>("number", "").key();
    host::Outcome outcome = parser.parse({"-5"});
    ASSERT_TRUE(outcome) << outcome.error().text();
    EXPECT_EQ(outcome.result()[name], "x");
    EXPECT_EQ(outcome.result()[number], -5);
}

TEST(Review, nothingThatAHostDeclaresWritesToTheTerminal) {
    host::Parser parser("tool");
    parser.addPositional<int>("n", "").metavar("A\033B").range(1, 5);
    parser.add<std::string>("m", "").maximum("\033[31mx");
    EXPECT_EQ(parser.parse({"x"}).error().text(), "'x' is not a whole number, which 'A\\x1BB' takes");
    EXPECT_EQ(parser.parse({"--m=zz", "1"}).error().text(), "'zz' is too large for '-m': at most \\x1B[31mx");
}

TEST(Review, aValueInAResponseFileIsReportedThere) {
    const std::string path = testing::TempDir() + "review.args";
    std::ofstream(path) << "5x\n";
    host::Parser parser("tool");
    parser.responseFiles();
    parser.add<int>("size", "");
    const host::Outcome outcome = parser.parse({"--size", "@" + path});
    EXPECT_EQ(outcome.error().text(), path + ":1: '5x' is not a whole number, which '--size' takes");
    std::ofstream(path, std::ios::trunc).close();
    const host::Outcome empty = parser.parse({"--size", "@" + path});
    EXPECT_EQ(empty.error().text(), "'--size' needs a value");
    EXPECT_EQ(empty.error().argument, "--size");
}

TEST(Review, settingsWithoutANameHaveAPlaceAllTheSame) {
    host::Parser parser("tool");
    parser.settings("\n--define=x\n", "");
    EXPECT_EQ(parser.parse({}).error().text(), "settings:2: unknown option '--define'");
}

TEST(Review, effectiveReadsBackWhereDefaultsMeetRules) {
    host::Parser parser("tool");
    const auto a = parser.add<int>("a", "").defaultTo(1).key();
    const auto b = parser.addFlag("b", "").key();
    const auto items = parser.add<int>("item", "").repeated().key();
    parser.exclusive({a, b});
    parser.settings("--item=1\n\n--item=2\n", "f");
    const host::Outcome outcome = parser.parse({"--b"});
    const std::string text = parser.effective(outcome.result());
    EXPECT_EQ(text, "# the default\n# --a=1\n# argument 1\n--b\n# f:1\n--item=1\n# f:3\n--item=2\n");
    parser.settings(text, "again");
    const host::Outcome again = parser.parse({});
    ASSERT_TRUE(again) << again.error().text();
    EXPECT_EQ(again.result()[a], 1);
    EXPECT_EQ(again.result()[items], (std::vector<int>{1, 2}));
}

TEST(Review, whatNobodyCouldTypeIsRefused) {
    host::Parser parser("tool");
    const auto list = parser.add<std::string>("x", "").list();
    EXPECT_THROW(list.allow("a,b", "c"), host::RegistrationError);
    EXPECT_THROW((void)list.defaultTo({"x", ""}), host::RegistrationError);
    EXPECT_THROW(parser.add<int>("y", "").range(1, 5).allow(9), host::RegistrationError);
}

TEST(Review, suggestionsAreNotFarFetched) {
    host::Parser parser("tool");
    for (const char* name : {"output-dir", "input-dir", "output-format", "dry-run", "log-level", "log-file"})
        parser.add<int>(name, "");
    const struct {
        const char* typed;
        std::vector<std::string> candidates;
    } rows[] = {
        {"--dir", {"output-dir", "input-dir"}},
        {"--in-put-dir", {"input-dir"}},
        {"--l-x", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parser.parse({row.typed}).error().candidates, row.candidates) << row.typed;
    host::Parser outer("tool");
    outer.command("add,create", "");
    EXPECT_EQ(outer.parse({"crate"}).error().text(), "unknown command 'crate'; did you mean 'create'?");
}

TEST(Review, aCheckDeclaresNothing) {
    host::Parser parser("tool");
    const auto size = parser.add<int>("size", "");
    size.check([&size](int) {
        size.allow(1);
        return std::string();
    });
    EXPECT_THROW((void)parser.parse({"--size=1"}), std::logic_error);
}

}  // namespace
