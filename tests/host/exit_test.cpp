// How a process ends: what it writes, where, and its exit code.
#include <csignal>

#include "host/fixture.h"

namespace {

/// A tool of a user.
int runTool(const Texts& typed) {
    host::Parser parser("too\x1bl", "Does it.");
    parser.version("1.4.0").epilogue(std::string(10000, 'x'));  // more than a stream holds back
    parser.add<std::string>("old", "").deprecated("use --new");
    parser.add<std::string>("new", "").environment("VORN_TEST_NEW");
    host::Parser& run = parser.command("run", "Runs.");
    run.rest("command", "What to run.");
    (void)parser.command("do", "Does.").add<int>("n", "").required();
    host::Parser& copy = parser.command("copy", "Copies.");
    (void)copy.add<int>("size", "").required();
    copy.oneOf({copy.addFlag("all", "").key(), copy.addFlag("some", "").key()});
    const host::Result result = parseOrExit(parser, typed);
    std::printf("ran with %s", result.value<std::string>("new").value_or("nothing").c_str());
    std::fflush(stdout);
    return 7;
}

/// One that has a help of its own.
int runUnhelpfulTool(const Texts& typed) {
    host::Parser parser("tool");
    parser.addFlag("help", "").global();
    (void)parser.command("do", "Does.").add<bool>("old", "").deprecated("");
    (void)parseOrExit(parser, typed);
    return 7;
}

/// "code|output|errors" of a process of its own, of help the first line alone.
template <class Prepare = void (*)()>
std::string ended(
    const Texts& typed, int (*tool)(const Texts&) = runTool, Prepare prepareOutput = [] {}) {
    const Ended how = endOf([&] { return tool(typed); }, prepareOutput);
    const bool isHelp = how.output.compare(0, 6, "Usage:") == 0;
    return std::to_string(how.code) + "|" +
           (isHelp ? how.output.substr(0, how.output.find('\n')) : how.output) + "|" + how.errors;
}

TEST(Exit, tellsHowItWent) {
    unsetenv("VORN_TEST_NEW");
    const std::string help = "0|Usage: too\\x1Bl";
    const std::string hint = "Try 'too\\x1Bl --help'.\n";
    const struct {
        Texts typed;
        std::string ended;
    } rows[] = {
        {{"run"}, "7|ran with nothing|"},
        {{"--new=x", "run", "a", "--help", "--version"}, "7|ran with x|"},  // untouched
        {{"--old=x", "run"}, "7|ran with nothing|too\\x1Bl: warning: '--old' is deprecated; use --new\n"},
        {{"--version"}, "0|too\x1bl 1.4.0\n|"},
        {{"--bogus", "--version", "--help"}, "0|too\x1bl 1.4.0\n|"},  // wins over mistakes; the first one
        {{"--new", "--version"}, "0|too\x1bl 1.4.0\n|"},
        {{"--bogus", "do"}, "2||too\\x1Bl: unknown option '--bogus'\nTry 'too\\x1Bl do --help'.\n"},
        {{}, "2||too\\x1Bl: missing command: run, do, copy\n" + hint},
        {{"bogus", "--help"}, "2||too\\x1Bl: unknown command 'bogus'\n" + hint},
        {{"--new=--help", "do", "-n=1"}, "7|ran with --help|"},
        {{"--help=1"}, "2||too\\x1Bl: '--help' takes no value\n" + hint},
        {{"copy"},  // the first of two mistakes
         "2||too\\x1Bl: missing option: one of --all, --some\nTry 'too\\x1Bl copy --help'.\n"},
        {{"do"}, "2||too\\x1Bl: missing option: -n N\nTry 'too\\x1Bl do --help'.\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ended(row.typed), row.ended) << joined(row.typed);
    const Texts helps[] = {{"--help"},    {"-h"},   {"--hel", "--bogus"}, {"do", "-n=x", "-h"},
                           {"run", "-h"}, {"help"}, {"help", "do"}};
    for (const Texts& typed : helps)
        EXPECT_EQ(ended(typed).substr(0, help.size()), help) << joined(typed);
    EXPECT_EQ(ended({"--help", "do", "--old=1", "--old=0"}, runUnhelpfulTool),
              "7||tool: warning: '--old' is deprecated\n");
    for (const Texts& typed : {Texts{"-x", "do"}, Texts{"do", "-x"}})  // nothing that could be tried
        EXPECT_EQ(ended(typed, runUnhelpfulTool), "2||tool: unknown option '-x'\n");
    setenv("VORN_TEST_NEW", "from outside", 1);
    EXPECT_EQ(ended({"run"}), "7|ran with from outside|");  // reads the process's environment
    unsetenv("VORN_TEST_NEW");
}

/// A host's object that is there before main, and after all that main made.
struct Early {
    host::Parser parser{"early"};
    host::Key<bool> flag = parser.addFlag("flag", "").key();
    host::Key<int> count = parser.addCount("count", "").key();
    host::Key<std::vector<int>> list = parser.add<int>("list", "").list(',').key();
    host::Outcome outcome = parser.parse({});
    bool isTried = false;

    ~Early() {
        if (!isTried) return;
        const host::Result& first = outcome.result();
        const bool isRight = !first[flag] && first[count] == 0 && first[list].empty() &&
                             parser.parse({"--flag", "--list=1"}).result()[list].size() == 1 &&
                             parser.parse({"--falg"}).error().candidates == Texts{"flag"};
        _exit(isRight ? 5 : 6);
    }
} early;

TEST(Exit, leavesObjectsOfTheHostUsable) {
    EXPECT_EXIT((early.isTried = true, std::exit(0)), testing::ExitedWithCode(5), "");
}

TEST(Exit, saysThatOutputCannotBeWritten) {
    const auto fill = [] { return (void)std::freopen("/dev/full", "w", stdout); };
    const auto close = [] { return (void)::close(STDOUT_FILENO); };
    const auto breakPipe = [] {
        int ends[2];
        if (pipe(ends) != 0) _exit(99);
        ::close(ends[0]);
        dup2(ends[1], STDOUT_FILENO);
    };
    const auto breakPipeQuietly = [&] { breakPipe(), std::signal(SIGPIPE, SIG_IGN); };
    const std::string cannot = "1||too\\x1Bl: cannot write to standard output: ";
    for (const char* asked : {"--help", "--version"}) {
        EXPECT_EQ(ended({asked}, runTool, fill), cannot + "No space left on device\n");
        EXPECT_EQ(ended({asked}, runTool, close), cannot + "Bad file descriptor\n");
        EXPECT_EQ(ended({asked}, runTool, breakPipeQuietly), "0||");
        EXPECT_EQ(ended({asked}, runTool, breakPipe),
                  "-" + std::to_string(SIGPIPE) + "||");  // as usual, and quiet
    }
}

}  // namespace
