// What --help shows: whole pages, and what holds for every page however wide it is.
#include "vorn/host/help.h"

#include <pty.h>

#include <algorithm>

#include "host/fixture.h"
#include "host/large_tool.h"
#include "support/any_tool.h"
#include "vorn/host/byte_size.h"
#include "vorn/host/path.h"

namespace {

using vorn_tests::columnsOf;
using vorn_tests::fits;
using vorn_tests::linesOf;

std::string helpOf(const host::Parser& parser, unsigned columns, bool showsAll = false) {
    host::HelpStyle style;
    style.columns = columns;
    style.showsAll = showsAll;
    return parser.help(style);
}

void expectToFit(const std::string& text, unsigned columns) {
    for (const std::string_view line : linesOf(text))
        EXPECT_TRUE(fits(line, columns)) << line;
}

}  // namespace

TEST(Help, showsArgumentsOptionsAndWhatTheyTake) {
    host::Parser parser("thumbs", "Makes small copies of images.");
    parser.version("1.4.0");
    (void)parser.add<int>("quality,q", "How good they look.")
        .range(1, 100)
        .defaultTo(80)
        .environment("THUMBS_QUALITY");
    (void)parser.add<std::string>("format", "What to write.").allow("text", "json").defaultTo("text");
    (void)parser.add<int>("size", "Widths in pixels.").metavar("PIXELS").list(',');
    (void)parser.add<std::string>("colour", "When to use colours.")
        .allow("never", "auto", "always")
        .implicit("auto");
    (void)parser.add<std::string>("output-dir,o", "Where they go.").metavar("DIR").required();
    (void)parser.add<double>("limit", "Stop after so many seconds.").minimum(0.5);
    const auto verbose = parser.addCount("verbose,v", "Say what is done; twice says more.").key();
    const auto quiet = parser.addSwitch("quiet", "Say nothing.").key();
    (void)parser.addSwitch("keep", "Never replace a file.").defaultTo(true).synonym("k");
    (void)parser.addPositional<std::string>("image", "Pictures to read.").atLeast(1);
    parser.exclusive({quiet, verbose});
    parser.epilogue("Examples:\n  thumbs -q 60 -o small *.jpg");
    EXPECT_EQ(parser.help(), page("thumbs"));
}

TEST(Help, isShownForEachCommandWithTheGlobalOptionsAroundIt) {
    host::Parser parser("nctl", "Keeps notes.");
    (void)parser.add<std::string>("store", "Where the notes are.").required().global();
    host::Parser& add = parser.command("add,new", "Adds a note.\nIt may be long.");
    (void)add.add<std::string>("label", "Words that describe it.").list(',');
    (void)add.addPositional<std::string>("text", "What it says.");
    (void)add.addPositional<int>("copies", "How often.").optional();
    EXPECT_EQ(parser.help(), page("nctl"));
    EXPECT_EQ(add.help(), page("nctl-add"));
}

TEST(Help, keepsHiddenAndDeprecatedOptionsForWhoeverAsksForAll) {
    host::Parser parser("tool");
    const auto day = parser.add<std::string>("day", "").group("Time").key();
    const auto week = parser.add<std::string>("week", "").group("Time").key();
    parser.add<std::string>("size", "How large.");
    parser.add<std::string>("scale", "How large.").deprecated("use --size");
    parser.addFlag("trace", "").hidden();
    parser.oneOf({day, week});
    EXPECT_EQ(parser.help(), page("hidden"));
    EXPECT_EQ(helpOf(parser, 80, true), page("hidden-all"));
}

TEST(Help, namesArgumentsInRulesAsItShowsThem) {
    host::Parser parser("tool");
    const auto x = parser.addPositional<std::string>("x", "").optional().key();
    const auto y = parser.add<int>("y", "").key();
    parser.addFlag("zoom", "").needs(x).group("Other options");
    parser.oneOf({x, y});
    EXPECT_EQ(parser.help(),
              "Usage: tool [OPTION...] {X | -y N}\n"
              "\nArguments:\n  X           (not with -y)\n"
              "\nOptions:\n  -y N        (not with X)\n  -h, --help  Show this help and exit.\n"
              "\nOther options:\n      --zoom  (needs X)\n");
    host::Parser grouped("tool");
    grouped.group("Other options").addFlag("zoom", "");
    EXPECT_EQ(grouped.help(),
              "Usage: tool [OPTION...]\n"
              "\nOther options:\n      --zoom\n  -h, --help  Show this help and exit.\n");
}

TEST(Help, tellsTheDefaultThatAVariableGives) {
    host::Parser parser("tool");
    parser.add<std::string>("name", "").environment("A").allow("one", "two", "three").metavar("X");
    (void)parser.add<int>("number", "").environment("B").list(',').defaultTo({1, 2});
    parser.addSwitch("fast", "").environment("C");
    parser.addCount("more", "").environment("D");
    host::HelpStyle style;
    const auto notesWith = [&](const std::vector<host::Variable>& variables) {
        style.environment = variables;
        const host::HelpPage page = parser.page(style);
        Texts last;
        for (const host::HelpEntry& entry : page.sections.front().entries) {
            if (!entry.notes.empty()) last.push_back(entry.notes.back());
        }
        return last;
    };
    EXPECT_EQ(notesWith({}), (Texts{"environment: A", "environment: B", "environment: C", "environment: D"}));
    EXPECT_EQ(notesWith({{"A", "th"}, {"B", "5,6"}, {"C", "1"}, {"D", "2"}}),
              (Texts{"default: three, from A", "default: 5,6, from B", "default: on, from C",
                     "default: 2, from D"}));
    // What would be refused is no default.
    for (const host::Variable& count : {host::Variable{"D", "-1"}, {"D", "x"}, {"D", ""}})
        EXPECT_EQ(notesWith({{"A", "t"}, {"B", "5,"}, {"C", "maybe"}, count}),
                  (Texts{"environment: A", "environment: B", "environment: C", "environment: D"}));
}

TEST(Help, notesWhatIsRare) {
    enum class Mode { fast, safe };
    host::Parser parser("tool");
    parser.group("All of it");
    const auto k = parser.addSwitch("k", "Short.");
    const auto secret = parser.addFlag("secret", "").hidden();
    const auto limit = parser.add<int>("limit", "").maximum(4);
    const auto word = parser.add<std::string>("word", "").repeated().defaultTo({"", "a b"});
    (void)limit.needs(word.key());
    (void)parser.add<Mode>("mode", "")
        .named({{"fast", Mode::fast}, {"safe", Mode::safe}})
        .defaultTo(Mode::safe)
        .global();
    (void)parser.add<bool>("sure", "").deprecated("").global();
    (void)parser.add<std::filesystem::path>("place", "").minimum("a").global();
    (void)parser.add<host::ByteSize>("size", "").global();
    parser.addFlag("unseen", "").hidden().global();
    parser.oneOf({k.key(), limit.key(), secret.key()});
    host::Parser& command = parser.command("do", "");
    (void)command.addPositional<std::string>("in", "").atLeast(2);
    (void)command.addPositional<std::string>("back", "Not for you.").hidden();
    EXPECT_EQ(parser.help(), page("rare"));
    EXPECT_EQ(helpOf(command, 50, true), page("rare-command"));
    EXPECT_EQ(helpOf(command, 50).find("BACK  "), std::string::npos);
    EXPECT_EQ(helpOf(command, 50).find("--unseen"), std::string::npos);
    host::Parser quiet("tool");
    quiet.addFlag("help", "").hidden();
    quiet.addFlag("help-all", "").hidden();
    quiet.addPositional<std::string>("a{b}", "");
    (void)quiet.addPositional<std::string>("in", "What is read.");
    EXPECT_EQ(quiet.help(), "Usage: tool A{B} IN\n\nArguments:\n  IN  What is read.\n");
    EXPECT_EQ(helpOf(quiet, 30), "Usage: tool A{B} IN\n\nArguments:\n IN\n      What is read.\n");
}

TEST(Help, breaksWhereItsReadersDo) {
    host::Parser parser("tool");
    parser.epilogue(
        "long-words-are-cut-where-the-line-ends\n"
        "  - indented lines stay indented\n"
        "\n"
        "图像(默认)质量,越高越好。\n"
        "ééééééééééééé\n"
        "a\033[1m\a\xFF\tb\n"
        "soft\xC2\xADhyphen\r\none\rtwo\xE2\x80\xA8three\xE2\x80\xA9"
        "4\n"
        "\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA\xF0\x9F\x91\x8D\xF0\x9F\x8F\xBD"
        "\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96\xD0\x96");
    EXPECT_EQ(helpOf(parser, 12), page("narrow"));
}

TEST(Help, fitsWhateverItsLanguageAndWidth) {
    for (const auto language : {large_tool::english, large_tool::german, large_tool::chinese}) {
        const host::Parser parser = large_tool::make(language);
        for (const unsigned columns : {2U, 3U, 20U, 39U, 40U, 41U, 60U, 80U, 100U, 200U}) {
            SCOPED_TRACE(columns);
            expectToFit(helpOf(parser, columns), columns);
        }
    }
}

TEST(Help, alignsDescriptionsByWhatIsSeen) {
    for (const auto language : {large_tool::english, large_tool::german, large_tool::chinese}) {
        const host::Parser parser = large_tool::make(language);
        for (const unsigned columns : {60U, 80U, 100U}) {
            const std::string help = helpOf(parser, columns);
            int aligned = 0;
            int column = 0;
            for (const large_tool::Row& row : large_tool::rows) {
                const std::string text = std::string(row.description.in[language]).substr(0, 6);
                for (const std::string_view line : linesOf(help)) {
                    const std::size_t begin = line.find("  " + text, 3);
                    if (begin == std::string::npos) continue;
                    const int found = columnsOf(line.substr(0, begin + 2));
                    if (column == 0) column = found;
                    EXPECT_EQ(found, column) << line;
                    ++aligned;
                }
            }
            EXPECT_GE(aligned, 40);
            EXPECT_LE(column, static_cast<int>(columns / 2));
        }
    }
}

TEST(Help, cutsADefaultThatIsTooLong) {
    host::Parser parser("tool");
    parser.add<std::string>("name", "").environment("V");
    host::HelpStyle style;
    style.environment = {{"V", std::string(100000, 'y')}};
    EXPECT_LT(parser.help(style).size(), 1000U);
}

TEST(Help, isDataForAHostThatShowsItInAnotherWay) {
    host::Parser parser("tool");
    (void)parser.add<int>("size,s", "How large.").range(1, 9).defaultTo(3).environment("SIZE").group("Look");
    (void)parser.addPositional<std::string>("file", "").atLeast(2);
    const std::vector<host::OptionInfo> options = parser.options({{"SIZE", "4"}});
    ASSERT_EQ(options.size(), 3U);
    const host::OptionInfo& size = options[0];
    EXPECT_EQ(size.names, (Texts{"size", "s"}));
    EXPECT_EQ(size.forms, (Texts{"-s", "--size"}));
    EXPECT_EQ(Texts({size.metavar, size.group, size.lowest, size.highest, size.variable}),
              (Texts{"N", "Look", "1", "9", "SIZE"}));
    EXPECT_EQ(size.defaults, Texts{"3"});
    EXPECT_EQ(size.fromVariable, Texts{"4"});
    EXPECT_EQ(options[1].forms, Texts{"FILE"});
    EXPECT_TRUE(options[1].isRequired && options[1].takesRest && options[1].atLeast == 2);
    EXPECT_TRUE(options[2].isBuiltIn);
}

// What a process writes, with a terminal of some width or without one.
namespace {

/// Runs the tool in a process of its own. Without columns, its output is no terminal.
Ended runInTerminal(unsigned columns, const char* argument, const Texts& environment,
                    host::Colours colours = host::Colours::automatic) {
    const auto run = [&] {
        for (const char* name : {"COLUMNS", "NO_COLOR"})
            unsetenv(name);
        setenv("TERM", "xterm", 1);
        for (const std::string& variable : environment)
            putenv(const_cast<char*>(variable.c_str()));
        host::Parser parser("tool",
                            "It has a description that is longer than most screens are wide, so that it "
                            "tells how wide the help is which shows it to people.");
        parser.version("1.4.0").colours(colours);
        (void)parseOrExit(parser, {"--wrong", argument});
        return 99;
    };
    if (columns == 0) return endOf(run, [] {});
    int output = -1;
    winsize size = {};
    size.ws_col = static_cast<unsigned short>(columns);
    const pid_t child = forkpty(&output, nullptr, nullptr, &size);
    if (child == 0) std::exit(run());
    Ended ended = {-1, "", ""};
    char buffer[4096];
    for (ssize_t count = 0; (count = read(output, buffer, sizeof buffer)) > 0;)
        ended.output.append(buffer, static_cast<std::size_t>(count));
    close(output);
    waitpid(child, &ended.code, 0);
    return ended;
}

int widestLine(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    int widest = 0;
    for (const std::string_view line : linesOf(text))
        widest = std::max(widest, columnsOf(line));
    return widest;
}

}  // namespace

TEST(HelpOfAProcess, isAsWideAsTheTerminal) {
    const struct {
        unsigned columns;
        const char* variable;
        int least, most;
    } cases[] = {
        {60, "A=", 50, 60},       {80, "COLUMNS=60", 70, 80}, {100, "A=", 85, 100},
        {200, "A=", 85, 100},     {0, "A=", 70, 80},          {0, "COLUMNS=50", 40, 50},
        {0, "COLUMNS=0", 70, 80}, {0, "COLUMNS=5x", 70, 80},  {0, "COLUMNS=99999999999", 70, 80},
    };
    for (const auto& each : cases) {
        const Ended shown = runInTerminal(each.columns, "--help", {each.variable, "NO_COLOR=1"});
        const int widest = widestLine(shown.output);
        EXPECT_GE(widest, each.least) << each.columns << " " << each.variable << "\n" << shown.output;
        EXPECT_LE(widest, each.most) << each.columns << " " << each.variable << "\n" << shown.output;
        EXPECT_EQ(shown.code, 0);
    }
}

TEST(HelpOfAProcess, hasColoursOnATerminalOnly) {
    const struct {
        unsigned columns;
        const char* variable;
        host::Colours wanted;
        bool isColoured;
    } cases[] = {
        {80, "NO_COLOR=", host::Colours::automatic, true},
        {0, "NO_COLOR=", host::Colours::automatic, false},
        {80, "NO_COLOR=1", host::Colours::automatic, false},
        {80, "TERM=dumb", host::Colours::automatic, false},
        {0, "NO_COLOR=1", host::Colours::always, true},
        {80, "A=", host::Colours::never, false},
    };
    for (const auto& each : cases) {
        const Ended shown = runInTerminal(each.columns, "--help", {each.variable}, each.wanted);
        const bool hasHeading = shown.output.find("\033[1;4mUsage:\033[0m tool") != std::string::npos;
        EXPECT_EQ(hasHeading, each.isColoured) << each.variable << "\n" << shown.output;
        EXPECT_EQ(shown.output.find('\033') != std::string::npos, each.isColoured);
    }
}
