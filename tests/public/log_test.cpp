// The diagnostic log of whole parses, line by line, and when it is on.
#include "support/fixture.h"

namespace vorn_3_1::public_tests {

static const std::string withLog = std::string(logSwitch) + " ";

// Spells out the writers at the beginning of each line; '@' stands for the NUL character.
static std::string logText(const std::string& lines) {
    std::string text;
    std::istringstream input(lines);
    for (std::string line; std::getline(input, line);) {
        const std::string writer = line.substr(0, 1);
        if (writer == "A") line.replace(0, 1, "AbbreviationParser");
        if (writer == "P") line.replace(0, 1, "PositionalOptionsParser");
        if (writer == "C") line.replace(0, 1, "collectNonparsingArguments");
        std::replace(line.begin(), line.end(), '@', '\0');
        text += line + "\n";
    }
    return text.substr(1);
}

struct Log : testing::Test {
    Log() {
        for (const char* name : {"verbose", "version"})
            cli.option(name, qel_bool);
        for (const char* name : {"list", "name"})
            cli.option(name)->tokenize(*name == 'l' ? ',' : '\0');
        cli.option("number", qel_int)->positional();
    }

    // Parses with the log on and compares all that is written, each line flushed.
    void expectLog(const std::string& line, const std::string& outcome, const std::string& lines) const {
        OutputCapture output;
        const std::ios_base::fmtflags own = std::cout.flags();
        std::cout << std::hex << std::showbase << std::showpos;  // a host's, and not for the log
        EXPECT_EQ(cli.parse(withLog + line), outcome);
        std::cout.flags(own);
        const std::string written = output.str();
        EXPECT_EQ(written, logText(lines));
        EXPECT_EQ(output.flushes, std::count(written.begin(), written.end(), '\n'));
    }

    const Cli cli{positionalAfterTerminator | hyphenNotPositional};
};

TEST_F(Log, ofAParseToAVetoAfterTheTerminator) {
    std::string events;
    Recorder handler(events);
    handler.atValue = [](const Value& value) { return *value.text != '7'; };
    cli.parser->addHandler(&handler);
    expectLog("--no-verb --name= x --zz -- 7", "1 Value '7' is not valid for option 'number' in argument '7'",
              R"(
P: recognizing argument '--no-verb'
A: recognizing argument '--no-verb'
A: best match option for 'no-verb' in argument '--no-verb' is 'no-verbose'
A: parsing argument '--no-verb'
A: detected option: 'verbose'
A: sent event on option parsed
A: adding values to result container:
A: using tokenizer on char: ','
A: value is: '0'
A: sent event on value parsed, option: 'verbose', value: '0'
A: stored option to result container.
A: removing argument: '--no-verb'
P: recognizing argument '--name='
A: recognizing argument '--name='
A: best match option for 'name' in argument '--name=' is 'name'
A: parsing argument '--name='
A: detected option: 'name'
A: value from the same argument taken: ''
A: no value in the same argument, looking next
A: got value from the next argument: 'x'
A: sent event on option parsed
A: adding values to result container:
A: not using tokenizer
A: stored option to result container.
A: removing argument: '--name='
A: removing argument: 'x'
P: recognizing argument '--zz'
A: recognizing argument '--zz'
ignoring --zz
C: stored argument: '7'
P: recognizing argument '7'
C: recognize result: 0, message: 
P: parsing argument '7'
P: option is 'number'
P: adding values to result container:
P: using tokenizer on char: ','
P: value is: '7'
PValue '7' is not valid for option 'number' in argument '7' One of the handler signaled the value is not valid.
C: parse result: 1, message: Value '7' is not valid for option 'number' in argument '7'
)");
}

TEST_F(Log, ofATieAndOfABadNulItem) {
    expectLog("--ver", "2 Ambiguous option 'ver' in argument: '--ver', could be: 'verbose', 'version'", R"(
P: recognizing argument '--ver'
A: recognizing argument '--ver'
A: failed to get best match for 'ver' in argument '--ver':Ambiguous option, possible options are: 'verbose', 'version'
A: parsing argument '--ver'
)");
    expectLog("5,", "2 Value validation problem in argument '5,': Option 'number' can not parse '", R"(
P: recognizing argument '5,'
A: recognizing argument '5,'
P: parsing argument '5,'
P: option is 'number'
P: adding values to result container:
P: using tokenizer on char: ','
P: value is: '5'
P: sent event on value parsed, option: 'number', value: '5'
P: value is: '@'
P: Value validation problem in argument '5,': Option 'number' can not parse '@' value, requires a type 'integer' here.
)");
}

TEST_F(Log, ofEveryMisuseEndsWithItsMessage) {
    cli.option("quiet", qel_empty);
    for (const char* misuse : {"--verb=1", "--quiet=1", "--name ''", "--name -x", "--name"}) {
        OutputCapture output;
        const std::string error = cli.parse(withLog + misuse).substr(2);
        const std::string written = output.str();
        std::string expected = "AbbreviationParser: ";
        expected.append(error).append("\n");
        EXPECT_EQ(written.substr(written.rfind('\n', written.size() - 2) + 1), expected);
    }
}

TEST_F(Log, isSwitchedByTheFirstArgumentOfTheLastParse) {
    const auto clashLog = [&] {
        OutputCapture output;
        EXPECT_EQ(standardErrorOf([&] { cli.option("other,name"); }), "other\n");
        return output.str();
    };
    const std::string clash = "An option with the same name is already registered: other\n";
    expectLog("", "0", "\n");
    EXPECT_EQ(clashLog(), clash);
    cli.parser->parseArgsVector(1, nullptr, cli.result);  // parses nothing, switches nothing
    EXPECT_EQ(clashLog(), clash);
    OutputCapture output;
    EXPECT_EQ(Cli().parse("-q vornoption=vornlogenable=1"), "0");  // one switch for all parsers
    EXPECT_EQ(clashLog(), "");
    EXPECT_EQ(cli.parseStream("# c\n vornoption=vornlogenable=1\r\n--"), "0");
    EXPECT_EQ(clashLog(), clash);
    EXPECT_EQ(cli.parse("--"), "0");
    EXPECT_EQ(clashLog() + output.str(), "");
}

}  // namespace vorn_3_1::public_tests
