// What a tool answers to a shell's script, in the words of its answers: a line with the kind and what stands in front of a
// path, then one for each candidate. What the shells make of it is tested with the shells themselves.
#include "host/fixture.h"

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

/// Runs parseOrExit in a process of its own, whose errors stand in its output.
Ended print(host::Parser& parser, const Texts& arguments) {
    return endOf([&] { return (void)parseOrExit(parser, arguments), 3; },
                 [] { dup2(STDOUT_FILENO, STDERR_FILENO); });
}

struct Case {
    Texts words;
    const char* answer;
};

void expectAnswers(host::Parser& parser, const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        Texts arguments = {"--completion", "answer", "fish"};
        arguments.insert(arguments.end(), each.words.begin(), each.words.end());
        EXPECT_EQ(print(parser, arguments).output, each.answer) << joined(each.words);
    }
}

void expectNothing(host::Parser& parser, const std::vector<Texts>& lines) {
    for (const Texts& words : lines)
        expectAnswers(parser, {{words, "words\t\n"}});
}

}  // namespace

TEST(Completion, answersWhatFits) {
    host::Parser parser("tool");
    declare(parser);
    const std::vector<Case> cases = {
        {{"--s"}, "words\t\n=\t--size=\tHow\n=\t--sure=\tWhether.\n"},
        {{"--ver"}, "words\t\n.\t--version\tShow the version and exit.\n"},
        {{"--sure", ""}, "words\t\n.\tyes\t\n.\tno\t\n"},
        {{"--sure=n"}, "words\t\n.\t--sure=no\t\n"},
        {{"--su=n"}, "words\t\n.\t--su=no\t\n"},
        {{"--place="}, "words\t\n.\t--place=here\t\n.\t--place=there\t\n"},  // nothing that a terminal obeys
        {{"--place=h"}, "words\t\n.\t--place=here\t\n"},
        {{"@li"}, "files\t@\n"},
        {{"--size", "5", "o"}, "words\t\n.\tone\t\n"},
        {{"-s5", ""}, "words\t\n.\tone\t\n"},
        {{"one", "mo"}, "words\t\n.\tmore\t\n.\tmoor\t\n.\tmost\t\n"},
        {{"--size=x", "--unknown", "o"}, "words\t\n.\tone\t\n"},
        {{"--", "o"}, "words\t\n.\tone\t\n"},
        {{"-"},
         "words\t\n=\t--size=\tHow\n=\t--sure=\tWhether.\n=\t--place=\tWhere.\n"
         ".\t--help\tShow this help and exit.\n.\t--version\tShow the version and exit.\n"},
    };
    expectAnswers(parser, cases);
    expectNothing(parser,
                  {{"--size="}, {"--nothing=n"}, {"-=n"}, {"--=n"}, {"--\xFF"}, {"--help=x"}, {"--", "--s"}});
    expectNothing(parser, {{"-s", "--"}});  // a value is wanted, and it may not look like this
}

TEST(Completion, answersWithEveryKindOfName) {
    host::Parser parser("tool");
    parser.addSwitch("normal", "");
    parser.addSwitch("verbose", "Say more.");
    parser.add<int>("x", "");
    parser.add<std::string>("colour,color", "").allow("never", "always").implicit("always");
    parser.addFlag("copy-dir", "");
    parser.addFlag("create-data", "");
    parser.addFlag("copy-data", "");
    parser.addFlag("secret", "").hidden();
    parser.addFlag("old-way", "").deprecated("nothing");
    parser.add<std::string>("output-dir,o", "").completes(host::Completion::folders);
    (void)parser.add<std::string>("parts", "").completes(host::Completion::files).list(',');
    (void)parser.add<std::string>("fields", "").allow("name", "size").list(',');
    const std::vector<Case> options = {
        {{"--no"}, "words\t\n.\t--normal\t\n.\t--no-normal\t\n.\t--no-verbose\tSay more.\n"},
        {{"--no-v"}, "words\t\n.\t--no-verbose\tSay more.\n"},
        {{"-x"}, "words\t\n.\t-x\t\n"},  // the value comes in the next word
        {{"--colo"}, "words\t\n.\t--colour\t\n=\t--colour=\t\n"},
        {{"--color=n"}, "words\t\n.\t--color=never\t\n"},
        {{"--sec"}, "words\t\n.\t--secret\t\n"},  // nothing else fits
        // What they have in common says less than what is typed, or as much.
        {{"--c-d"}, "list\t\n.\t--copy-dir\t\n.\t--create-data\t\n.\t--copy-data\t\n"},
        {{"--co-d"}, "words\t\n.\t--copy-dir\t\n.\t--copy-data\t\n"},
        {{"-copy"}, "words\t\n.\t--copy-dir\t\n.\t--copy-data\t\n"},
        {{"--o-d=su"}, "folders\t--o-d=\n"},
        {{"-o", "su"}, "folders\t\n"},
        {{"--parts=a,b"}, "files\t--parts=a,\n"},
        {{"--fields=name,s"}, "words\t\n.\t--fields=name,size\t\n"},
    };
    expectAnswers(parser, options);
    expectNothing(parser, {{"--normal=n"}, {"--old"}, {"---"}, {"--fields=x"}});

    host::Parser hiding("tool");
    hiding.addFlag("help", "").hidden();
    hiding.addFlag("help-all", "").hidden();
    expectNothing(hiding, {{"--"}, {""}});
    // What they have in common fits a third one, too.
    hiding.addSwitch("copies-dir", "");
    hiding.addFlag("copied-data", "");
    hiding.addFlag("copier-x", "");
    const std::vector<Case> more = {
        {{"--"}, "words\t\n.\t--copies-dir\t\n.\t--copied-data\t\n.\t--copier-x\t\n"},
        {{"--c-d"}, "list\t\n.\t--copies-dir\t\n.\t--copied-data\t\n"},
    };
    expectAnswers(hiding, more);
}

TEST(Completion, answersWithCommandsAndWhatTheyTake) {
    host::Parser parser("tool");
    parser.add<std::string>("store", "").allow("near", "far").global();
    parser.addFlag("own", "");
    parser.command("copy-data", "Copies\ndata.");
    parser.command("copy-dir", "");
    host::Parser& remove = parser.command("remove,remote,rm", "");
    remove.addPositional<std::string>("id", "").allow("one", "two");
    (void)remove.addPositional<std::string>("more", "").allow("three").optional();
    (void)remove.addPositional<std::string>("last", "").allow("four");
    parser.command("run", "").rest("what", "").allow("now");
    const std::vector<Case> cases = {
        {{""}, "words\t\n.\tcopy-data\tCopies\n.\tcopy-dir\t\n.\tremove\t\n.\trun\t\n"},
        {{"rem"}, "words\t\n.\tremove\t\n"},  // two names of one command
        {{"c-d"}, "words\t\n.\tcopy-data\tCopies\n.\tcopy-dir\t\n"},
        {{"--store", "far", "rm", "o"}, "words\t\n.\tone\t\n"},
        {{"rm", "--st"}, "words\t\n=\t--store=\t\n"},
        {{"rm", "one", ""}, "words\t\n.\tthree\t\n.\tfour\t\n"},  // the one in the middle may be left out
        {{"run", "--st"}, "words\t\n=\t--store=\t\n"},
        {{"run", "x", "n"}, "words\t\n.\tnow\t\n"},
    };
    expectAnswers(parser, cases);
    expectNothing(parser, {{"="}, {"x"}, {"nothing", "--s"}, {"rm", "--own"}});
    expectNothing(parser, {{"run", "x", "--st"}});  // all of it belongs to the rest
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
    const std::vector<Case> cases = {
        {{"remove", ""}, "words\t\n.\tmain-any\t\n"},
        {{"--store=x", "rem", "--kind", "y", "--bogus", "id", "a"}, "words\t\n.\tax-y\t\n"},
        {{"--store=x", "help", "rem", ""}, "words\t\n.\tx-any\t\n"},
    };
    expectAnswers(parser, cases);
}

TEST(Completion, cutsALineAsBashDoes) {
    host::Parser parser("tool");
    parser.add<std::string>("name", "").allow("a b", "a'b", "a\"$b", "~a", "plain");
    parser.addFlag("out-x:y", "");
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
        {"tool --name\npl", "plain\n"},
        {"tool --name pl\\", "plain\n"},
        {"tool --name \"a\\\"", "a\\\"\\$b\n"},
        {"tool --name \"a\\b", ""},
        {"tool --name \"a\\", ""},
        {"tool --o-x:", ""},  // what the shell keeps is no beginning of the full name
        {"tool --out-x:", "y\n"},
    };
    for (const auto& each : cases) {
        const std::string answer =
            print(parser, {"--completion", "answer", "bash", each.line, breaks}).output;
        std::size_t begin = 0;
        for (int lines = 0; lines < 3; ++lines)
            begin = answer.find('\n', begin) + 1;
        EXPECT_EQ(answer.substr(begin), each.candidates) << each.line;
    }
}

TEST(Completion, leavesToBashWhatStandsInFrontOfAPath) {
    host::Parser parser("tool");
    (void)parser.add<std::string>("parts", "").completes(host::Completion::files).list(',');
    const struct {
        const char* breaks;
        const char* answer;
    } cases[] = {{" =", "files\na,\nb\n"}, {" ", "files\n--parts=a,\nb\n"}, {" =,", "files\n\nb\n"}};
    for (const auto& each : cases)
        EXPECT_EQ(print(parser, {"--completion", "answer", "bash", "tool --parts=a,b", each.breaks}).output,
                  each.answer);
}

TEST(Completion, isAskedForInFullAndFirstOnly) {
    host::Parser parser("my-tool");
    parser.add<int>("complete-all", "");
    EXPECT_EQ(print(parser, {"--completion", "zsh"}).output.substr(0, 16), "#compdef my-tool");
    EXPECT_EQ(print(parser, {"--completion=bash"}).output.substr(0, 34),
              "# Completion of my-tool for bash: ");
    EXPECT_EQ(print(parser, {"--completion=zsh"}).output.substr(0, 16), "#compdef my-tool");
    EXPECT_EQ(print(parser, {"--completion"}).output,
              "my-tool: '--completion' takes the name of a shell: bash, zsh or fish\n");
    EXPECT_EQ(print(parser, {"--completion", "csh"}).code, 2);
    EXPECT_EQ(print(parser, {"--comp-a", "1", "--completion", "zsh"}).code, 2);
    EXPECT_EQ(parser.parse({"--complet", "zsh"}).error().kind, host::Error::Kind::unknownOption);
    EXPECT_EQ(print(parser, {"--completions", "zsh"}).code, 2);
    EXPECT_EQ(print(parser, {"--completion=answer"}).code, 2);
    for (const Texts& few : {Texts{"--completion", "answer"}, {"--completion", "answer", "bash"}})
        EXPECT_EQ(print(parser, few).output, "");  // a shell's script never asks so
    EXPECT_EQ(print(parser, {"--completion", "answer", "bash", "tool --comp"}).output, "words\t\n");
    EXPECT_EQ(print(parser, {}).code, 3);

    parser.completion("shell-words");
    EXPECT_EQ(print(parser, {"--shell-words", "fish"}).code, 0);
    EXPECT_EQ(print(parser, {"--completion", "fish"}).code, 2);

    parser.addFlag("shell-words", "The tool's own.");
    EXPECT_EQ(print(parser, {"--shell-words"}).code, 3);
    parser.completion("");
    EXPECT_EQ(print(parser, {"--completion", "fish"}).code, 2);
}

TEST(Completion, scriptsQuoteTheNamesThatNeedIt) {
    const struct {
        const char* program;
        const char* line;
    } cases[] = {
        {"AZ_az-09.x", "complete -c AZ_az-09.x -f -a '(_complete_AZ_az_09_x)'\n"},
        {"it's a\n{[tool]}:$1",
         "complete -c 'it'\\''s a{[tool]}:$1' -f -a '(_complete_it_s_a___tool____1)'\n"},
    };
    for (const auto& each : cases) {
        host::Parser parser(each.program);
        const std::string script = print(parser, {"--completion", "fish"}).output;
        EXPECT_EQ(script.substr(script.rfind("complete -c")), each.line);
    }
}
