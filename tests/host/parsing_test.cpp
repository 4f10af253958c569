// How a host's parse goes and ends: strict numbers, lists, functions, response files, exit codes.
#include <unistd.h>

#include <fstream>

#include "fixture.h"

namespace vorn_3_1::host_tests {

using host::Flags;

TEST(HostParsing, numbersAreReadToTheirEnd) {
    // Options, each with texts that are numbers and others that only begin like one.
    const public_tests::Texts cases[] = {
        {"int", "0 -12 +7 010 ~5 2147483647", "12abc 0x10 1.0 1e3 1,2 1~2 5~"},
        {"unsigned", "0 +7 4294967295", "-1 12abc 0x10 5h"},
        {"long", "-5000000000 5000000000", "5000000000L 0x10"},
        {"hex", "10 0x1F 0XaB 1Fh 10H ~12 18446744073709551615", "1A ~0x1F 0x1F~ 0x1Fh -1 1Fhh +10h 0x1G"},
        {"double", "1 -1.5 .5 5. 1e3 1E-3 +2.5e+10 ~1.5", "1.5x 1,5 0x10 1.5.5 1~5 1.5~"},
    };
    host::Parser parser;
    parser.add<int>("int", "");
    parser.add<unsigned>("unsigned", "");
    parser.add<std::int64_t>("long", "");
    parser.add<std::uint64_t>("hex", "");
    parser.add<double>("double", "");
    for (const public_tests::Texts& row : cases) {
        for (const bool isNumber : {true, false}) {
            std::istringstream values(row[isNumber ? 1 : 2]);
            for (std::string value; values >> value;) {
                const std::string argument = "--" + row[0] + "=" + value;
                EXPECT_EQ(parse(parser.strictNumbers(true), argument).code, isNumber ? 0 : 1) << argument;
                EXPECT_EQ(parse(parser.strictNumbers(false), argument).code, 0) << argument;
            }
        }
    }
}

TEST(HostParsing, onlyListsAreCut) {
    host::Parser parser;
    parser.add<Text>("file", "");
    parser.add<int>("numbers", "").list();
    parser.add<Text>("path", "").list(':');
    const host::Result result = std::move(parse(parser, "-f=a,b -n=1,2 -n 3 -p=a,b:c").result);
    EXPECT_EQ(joined(result.values<Text>("file")), "a,b ");
    EXPECT_EQ(joined(result.values<int>("numbers")), "1 2 3 ");
    EXPECT_EQ(joined(result.values<Text>("path")), "a,b c ");
    EXPECT_EQ(parse(parser, "-n=1,2x").text,
              "Value '1,2x' is not valid for option 'numbers' in argument '-n=1,2x'");
}

TEST(HostParsing, theSafeFlagsAreOnUnlessNamed) {
    const auto outcomeOf = [](Flags flags, const std::string& line) {
        host::Parser parser(flags);
        parser.add<Text>("input", "").positional();
        const host::Outcome outcome = parse(parser, line);
        return outcome ? listOf(outcome.result.given()) : outcome.text;
    };
    EXPECT_EQ(outcomeOf(Flags::none, "a --tpyo b -- c"), "Unknown option: --tpyo");
    EXPECT_EQ(outcomeOf(Flags::ignoreUnknown, "a --tpyo b -- c"), "input=a input=b ");
    EXPECT_EQ(outcomeOf(Flags::hyphenPositional, "a --tpyo b -- c"), "input=a input=--tpyo input=b ");
    EXPECT_EQ(outcomeOf(Flags::positionalAfterTerminator, "a -- --c"), "input=a input=--c ");
    EXPECT_EQ(outcomeOf(Flags::ignoreUnknown | Flags::positionalRepeat, "--x a --input b"),
              "input=a input=--input input=b ");
}

TEST(HostParsing, functionsHearAndJudge) {
    std::string heard;
    host::Parser parser;
    parser.add<int>("level", "").check([](int level) { return level < 5 ? nullptr : "5 is the end"; });
    parser.add<Text>("mode", "").allow("fast").check([&](Text mode) {
        return (heard.append(mode), mode == "fast");
    });
    parser.onOption([&](Text name) { heard.append("<").append(name).append(">"); });
    parser.onValue([&](Text, const Value& value) { return (heard.append(value.text), *value.text != '0'); });
    parser.onValue([&](Text, const Value& value) { return std::string(*value.text == '3' ? "not 3" : ""); });
    parser.onUnknown([](Text argument) { return argument == "known"; });
    host::Parser moved = std::move(parser);

    EXPECT_EQ(parse(moved, "--level=4 known -m=f").text, "");
    EXPECT_EQ(heard,
              "<level>4<mode>fastf");  // a check sees the allowed value in full, an event what was typed
    const std::string refusal = "is not valid for option 'level' in argument '-l=";
    EXPECT_EQ(parse(moved, "-l=5").text, "Value '5' " + refusal + "5': 5 is the end");
    EXPECT_EQ(parse(moved, "-l=3").text, "Value '3' " + refusal + "3': not 3");
    EXPECT_EQ(parse(moved, "-l=0").text, "Value '0' " + refusal + "0'");
    EXPECT_EQ(parse(moved, "-l=5").code, 1);
    EXPECT_EQ(parse(moved, "-l=4x").text, "Value '4x' " + refusal + "4x'");  // the reason is gone
    EXPECT_EQ(parse(moved, "unknown").text, "Unknown option: unknown");
}

class HostFiles : public testing::Test {
protected:
    HostFiles() {
        parser.responseFiles();
        parser.add<Text>("text", "").defaultTo("none");
        parser.add<Text>("input", "").positional();
    }
    ~HostFiles() override { std::remove(name.c_str()); }

    std::string write(const std::string& text) {
        std::ofstream(name) << text;
        return "@" + name;
    }

    host::Parser parser;
    std::string name = testing::TempDir() + "vorn-host-" + std::to_string(getpid());
};

TEST_F(HostFiles, argumentsStandWhereTheirFileStands) {
    const std::string file = write("# comment\n  --text=a b\r\n@x\ny");
    host::Outcome outcome = parse(parser, "1 " + file + " 2 @ " + file + " -- " + file);
    EXPECT_EQ(outcome.text, "");
    EXPECT_EQ(listOf(outcome.result.given()),
              "input=1 text=a b input=@x input=y input=2 input=@ text=a b input=@x input=y ");
    EXPECT_EQ(joined(outcome.result.arguments()), file + " ");

    outcome = parse(parser, file);
    EXPECT_EQ(listOf(outcome.result.given()), "text=a b input=@x input=y ");
    EXPECT_EQ(parse(parser.responseFiles(false), file).result.value<Text>("input"), file);
}

TEST_F(HostFiles, faultsInFilesNameTheFile) {
    const auto expect = [this](const std::string& line, int code, const std::string& text) {
        const host::Outcome outcome = parse(parser, line);
        EXPECT_EQ(outcome.code, code);
        EXPECT_EQ(outcome.text, text);
    };
    expect("@/no/such", 2, "Cannot read response file '/no/such': No such file or directory");
    expect("@/", 2, "Cannot read response file '/': Is a directory");
    expect(write("--tpyo"), 2, "In response file '" + name + "': Unknown option: --tpyo");
    expect(write(std::string("a\0b", 3)), 2, "Response file '" + name + "' is not a text");
    expect("--text " + write("a"), 2, "Option 'text' requires a value in argument: '--text'");
    const char* const cutOff[] = {"tool", nullptr};
    EXPECT_EQ(parser.parse(2, cutOff).text, "The arguments cannot be processed.");
}

TEST_F(HostFiles, theLogFollowsTheCommandLineThroughFiles) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(parse(parser, "vornoption=vornlogenable=1 " + write("a") + " b").text, "");
    const std::string log = testing::internal::GetCapturedStdout();
    for (const char* line : {"parsing argument 'a'", "parsing argument 'b'"}) {
        EXPECT_NE(log.find(line), std::string::npos) << line;
    }
}

/// Runs parseOrExit in a process of its own, which ends with 77 if that returns.
void exitAfter(const std::string& line) {
    host::Parser parser;
    parser.usage("Usage: tool").helpAll("all");
    parser.add<int>("level,l", "How hard.");
    parser.add<int>("secret", "Not for all.", host::hiddenGroup);
    CommandLine command(line);
    host::Outcome settings = parser.parseText("--level=4");
    const host::Result result =
        parser.parseOrExit(command.argc, command.argv.data(), std::move(settings.result));
    std::exit(joined(result.values<int>("level")) == "4 5 " ? 77 : 1);
}

TEST(HostParsingDeathTest, parseOrExitEndsTheProcess) {
    const auto ends = [](int code) { return testing::ExitedWithCode(code); };
    EXPECT_EXIT(exitAfter("-l 5"), ends(77), "^$");
    EXPECT_EXIT(
        exitAfter("-l=5x"), ends(2),
        "^tool: Value '5x' is not valid for option 'level' in argument '-l=5x'\nTry 'tool --help'.\n$");
    EXPECT_EXIT(exitAfter("--tpyo --help"), ends(2), "^tool: Unknown option: --tpyo\n");
    const auto withOwnHelp = [] {
        host::Parser parser;
        parser.add<host::NoValue>("help", "");
        EXPECT_NE(parser.plain(), nullptr);
        const char* const nameless[] = {nullptr, "--tpyo"};
        (void)parser.parseOrExit(2, nameless);
    };
    EXPECT_EXIT(withOwnHelp(), ends(2), "^: Unknown option: --tpyo\n$");
    // Help goes to standard output; here it is joined with standard error so that it can be compared.
    const auto joinedExit = [](const std::string& line) {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        exitAfter(line);
    };
    const std::string shown =
        "Usage: tool\n\n-all +Show the help with all options and exit.\n-l, -level=<integer> +How hard.\n"
        "-help +Show this help and exit.\n\n";
    EXPECT_EXIT(joinedExit("--help --tpyo"), ends(0), "^" + shown + "$");
    EXPECT_EXIT(joinedExit("--all"), ends(0),
                "^" + shown + "vorn_hidden\n-secret=<integer> +Not for all.\n\n$");
}

}  // namespace vorn_3_1::host_tests
