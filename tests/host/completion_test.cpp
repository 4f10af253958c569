// What a tool answers to a shell's script, in the words of its answers: a line with the kind and what stands in front of a
// path, then one for each candidate. What the shells make of it is tested with the shells themselves.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "vorn/host.h"

namespace host = vorn::host;

namespace {

void declare(host::Parser& parser) {
    parser.version("1");
    parser.joinedShort().responseFiles();
    parser.add<int>("size,s", "How\nwide.");
    parser.add<bool>("sure", "Whether.");
    parser.add<std::string>("place", "Where.").completes([](std::string_view typed) {
        return std::vector<std::string>{"here", "there", std::string(typed) + "\x1b[31m", "h\xff"};
    });
    (void)parser.addPositional<std::string>("first", "").allow("one");
    (void)parser.addPositional<std::string>("more", "").allow("more", "moor").atLeast(0);
    (void)parser.addPositional<std::string>("last", "").allow("most");
}

struct Printed {
    std::string text;
    int code;
};

/// Runs parseOrExit in a process of its own.
Printed print(host::Parser& parser, std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "tool");
    std::FILE* output = std::tmpfile();
    std::fflush(stdout);  // or the child would write it, too
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(output), STDOUT_FILENO);
        dup2(fileno(output), STDERR_FILENO);
        const host::Result result = parser.parseOrExit(static_cast<int>(arguments.size()), arguments.data());
        _exit(3);
    }
    int status = 0;
    waitpid(child, &status, 0);
    std::rewind(output);
    std::string text;
    for (int character = std::getc(output); character != EOF; character = std::getc(output))
        text += static_cast<char>(character);
    std::fclose(output);
    return {text, WEXITSTATUS(status)};
}

struct Case {
    std::vector<const char*> words;
    const char* answer;
};

}  // namespace

TEST(Completion, answersWhatFits) {
    host::Parser parser("tool");
    declare(parser);
    const Case cases[] = {
        {{"--s"}, "words\t\n=\t--size=\tHow\n=\t--sure=\tWhether.\n"},
        {{"--ver"}, "words\t\n.\t--version\tShow the version and exit.\n"},
        {{"--sure", ""}, "words\t\n.\tyes\t\n.\tno\t\n"},
        {{"--sure=n"}, "words\t\n.\t--sure=no\t\n"},
        {{"--su=n"}, "words\t\n.\t--su=no\t\n"},
        {{"--place="}, "words\t\n.\t--place=here\t\n.\t--place=there\t\n"},  // nothing that a terminal obeys
        {{"--place=h"}, "words\t\n.\t--place=here\t\n"},
        {{"--size="}, "words\t\n"},
        {{"--nothing=n"}, "words\t\n"},
        {{"-=n"}, "words\t\n"},
        {{"--=n"}, "words\t\n"},
        {{"--\xFF"}, "words\t\n"},
        {{"--help=x"}, "words\t\n"},
        {{"@li"}, "files\t@\n"},
        {{"--size", "5", "o"}, "words\t\n.\tone\t\n"},
        {{"-s5", ""}, "words\t\n.\tone\t\n"},
        {{"-s", "--"}, "words\t\n"},  // a value is wanted, and it may not look like this
        {{"one", "mo"}, "words\t\n.\tmore\t\n.\tmoor\t\n.\tmost\t\n"},
        {{"--size=x", "--unknown", "o"}, "words\t\n.\tone\t\n"},
    };
    for (const Case& each : cases) {
        std::vector<const char*> arguments = {"--completion", "answer", "fish"};
        arguments.insert(arguments.end(), each.words.begin(), each.words.end());
        EXPECT_EQ(print(parser, arguments).text, each.answer) << each.words.front();
    }
}

TEST(Completion, showsAFunctionWhatStandsInFront) {
    host::Parser parser("tool");
    const auto store = parser.add<std::string>("store", "").defaultTo("main").environment("STORE").key();
    host::Parser& command = parser.command("remove", "");
    const auto kind = command.add<std::string>("kind", "").key();
    (void)command.addPositional<std::string>("id", "").atLeast(1).completes(
        [=](std::string_view typed, const host::Result& before) {
            const std::string all = before[store] + "-" + before[kind].value_or("any");
            return std::vector<std::string>{std::string(typed) + all};
        });
    const Case cases[] = {
        {{"remove", ""}, "words\t\n.\tmain-any\t\n"},
        {{"--store=x", "rem", "--kind", "y", "--bogus", "id", "a"}, "words\t\n.\tax-y\t\n"},
        {{"--store=x", "help", "rem", ""}, "words\t\n.\tx-any\t\n"},
    };
    for (const Case& each : cases) {
        std::vector<const char*> arguments = {"--completion", "answer", "fish"};
        arguments.insert(arguments.end(), each.words.begin(), each.words.end());
        EXPECT_EQ(print(parser, arguments).text, each.answer) << each.words.front();
    }
}

TEST(Completion, cutsALineAsBashDoes) {
    host::Parser parser("tool");
    parser.add<std::string>("name", "").allow("a b", "a'b", "a\"$b", "~a", "plain");
    const char breaks[] = " \t\n\"'><=;|&(:";
    const struct {
        const char* line;
        const char* candidates;
    } cases[] = {
        {"tool --name a", "a\\ b\na\\'b\na\\\"\\$b\n"},
        {"tool --name 'a", "a b\na'\\''b\na\"$b\n"},
        {"tool --name \"a", "a b\na'b\na\\\"\\$b\n"},
        {"tool --name=~", "\\~a\n"},
        {"tool --na\\me pl", "plain\n"},
        {"tool '--name' \"p\"l", "plain\n"},
        {"tool  --name\tpl", "plain\n"},
        {"/usr/bin/my\\ tool --nam", "--name=\n"},
    };
    for (const auto& each : cases) {
        const std::string answer = print(parser, {"--completion", "answer", "bash", each.line, breaks}).text;
        std::size_t begin = 0;
        for (int lines = 0; lines < 3; ++lines)
            begin = answer.find('\n', begin) + 1;
        EXPECT_EQ(answer.substr(begin), each.candidates) << each.line;
    }
}

TEST(Completion, isAskedForInFullAndFirstOnly) {
    host::Parser parser("my-tool");
    parser.add<int>("complete-all", "");
    EXPECT_EQ(print(parser, {"--completion", "zsh"}).text.substr(0, 16), "#compdef my-tool");
    EXPECT_EQ(print(parser, {"--completion=zsh"}).text.substr(0, 16), "#compdef my-tool");
    EXPECT_EQ(print(parser, {"--completion"}).text,
              "my-tool: '--completion' takes the name of a shell: bash, zsh or fish\n");
    EXPECT_EQ(print(parser, {"--completion", "csh"}).code, 2);
    EXPECT_EQ(print(parser, {"--comp-a", "1", "--completion", "zsh"}).code, 2);
    EXPECT_EQ(parser.parse({"--complet", "zsh"}).error().kind, host::Error::Kind::unknownOption);

    parser.completion("shell-words");
    EXPECT_EQ(print(parser, {"--shell-words", "fish"}).code, 0);
    EXPECT_EQ(print(parser, {"--completion", "fish"}).code, 2);

    parser.addFlag("shell-words", "The tool's own.");
    EXPECT_EQ(print(parser, {"--shell-words"}).code, 3);
}
