// How a process ends: what it writes, where, and its exit code.
#include <sys/wait.h>
#include <unistd.h>
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
    (void)copy.add<std::string>("to", "").required().metavar("DIR");
    copy.oneOf({copy.addFlag("all", "").key(), copy.addFlag("some", "").key()});
    (void)copy.addPositional<std::string>("first", "");
    (void)copy.addPositional<std::string>("more", "").atLeast(2);
    std::vector<const char*> argv = {"tool"};
    for (const std::string& text : typed)
        argv.push_back(text.c_str());
    const host::Result result = parser.parseOrExit(static_cast<int>(argv.size()), argv.data());
    std::printf("ran with %s", result.value<std::string>("new").value_or("nothing").c_str());
    std::fflush(stdout);
    return 7;
}

/// One that has a help of its own.
int runUnhelpfulTool(const Texts& typed) {
    host::Parser parser("tool");
    parser.addFlag("help", "").global();
    (void)parser.command("do", "Does.").add<bool>("old", "").deprecated("");
    std::vector<const char*> argv = {"tool"};
    for (const std::string& text : typed)
        argv.push_back(text.c_str());
    (void)parser.parseOrExit(static_cast<int>(argv.size()), argv.data());
    return 7;
}

/// "code|output|errors" of a process of its own. A signal's number is negative.
std::string ended(const Texts& typed, const char* output = nullptr, bool ignoresPipe = false,
                  int (*tool)(const Texts&) = runTool) {
    const TemporaryFile outputFile("");
    const TemporaryFile errorFile("");
    const std::string target = output != nullptr ? output : outputFile.path;
    const pid_t child = fork();
    if (child == 0) {
        if (target == "closed pipe") {
            int ends[2];
            if (pipe(ends) != 0) _exit(99);
            close(ends[0]);
            dup2(ends[1], 1);
            if (ignoresPipe) std::signal(SIGPIPE, SIG_IGN);
        } else if (target == "closed") {
            close(1);
        } else if (std::freopen(target.c_str(), "w", stdout) == nullptr) {
            _exit(98);
        }
        if (std::freopen(errorFile.path.c_str(), "w", stderr) == nullptr) _exit(97);
        std::exit(tool(typed));
    }
    int status = 0;
    waitpid(child, &status, 0);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    std::string written = contentOf(outputFile.path);
    if (written.compare(0, 6, "Usage:") == 0) written = written.substr(0, written.find('\n'));
    return std::to_string(code) + "|" + written + "|" + contentOf(errorFile.path);
}

TEST(Exit, tellsHowItWent) {
    unsetenv("VORN_TEST_NEW");
    const std::string help = "0|Usage: too\\x1Bl";
    const std::string hint = "Try 'too\\x1Bl --help'.\n";
    const struct {
        Texts typed;
        std::string ended;  // the first line of help alone
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
        {{"copy"}, "2||too\\x1Bl: missing option: one of --all, --some\nTry 'too\\x1Bl copy --help'.\n"},
        {{"copy", "--size=1", "--some", "a", "b"},
         "2||too\\x1Bl: missing option: --to DIR\nTry 'too\\x1Bl copy "
         "--help'.\n"},
        {{"copy", "--size=1", "--to=x", "--some"},
         "2||too\\x1Bl: missing argument: FIRST\nTry 'too\\x1Bl copy --help'.\n"},
        {{"copy", "--size=1", "--to=x", "--some", "a", "b"},
         "2||too\\x1Bl: missing argument: MORE (2 or more)\nTry 'too\\x1Bl copy --help'.\n"},
        {{"copy", "--sze=1", "a"},
         "2||too\\x1Bl: unknown option '--sze'; did you mean '--size'?\nTry 'too\\x1Bl copy --help'.\n"},
        {{"do"}, "2||too\\x1Bl: missing option: -n N\nTry 'too\\x1Bl do --help'.\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ended(row.typed), row.ended) << joined(row.typed);
    const Texts helps[] = {{"--help"},    {"-h"},   {"--hel", "--bogus"}, {"do", "-n=x", "-h"},
                           {"run", "-h"}, {"help"}, {"help", "do"}};
    for (const Texts& typed : helps)
        EXPECT_EQ(ended(typed).substr(0, help.size()), help) << joined(typed);
    const auto unhelpful = [](const Texts& typed) { return ended(typed, nullptr, false, runUnhelpfulTool); };
    EXPECT_EQ(unhelpful({"--help", "do", "--old=1", "--old=0"}), "7||tool: warning: '--old' is deprecated\n");
    EXPECT_EQ(unhelpful({"-x", "do"}), "2||tool: unknown option '-x'\n");  // nothing that could be tried
    EXPECT_EQ(unhelpful({"do", "-x"}), "2||tool: unknown option '-x'\n");
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
    const pid_t child = fork();
    if (child == 0) {
        early.isTried = true;
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 5) << status;
}

TEST(Exit, saysThatOutputCannotBeWritten) {
    for (const char* asked : {"--help", "--version"}) {
        EXPECT_EQ(ended({asked}, "/dev/full"),
                  "1||too\\x1Bl: cannot write to standard output: No space left on device\n");
        EXPECT_EQ(ended({asked}, "closed"),
                  "1||too\\x1Bl: cannot write to standard output: Bad file descriptor\n");
        EXPECT_EQ(ended({asked}, "closed pipe", true), "0||");
        EXPECT_EQ(ended({asked}, "closed pipe"),
                  "-" + std::to_string(SIGPIPE) + "||");  // as usual, and quiet
    }
}

}  // namespace
