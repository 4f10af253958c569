// Hosts that give the library what nobody expects: no arguments at all, or a million of them, or huge ones, any bytes,
// names that no one would choose, a stack of some pages, a second process in the middle, a console that is closed.
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <string>
#include <vector>

#include "support/fixture.h"
#include "support/heap.h"

namespace vorn_3_1::public_tests {

namespace {

std::string everyByte() {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

TEST(OddHost, givesNoArguments) {
    Cli cli;
    cli.option("level,l")->defaultValue("low");
    char* none[] = {nullptr};
    for (const int argc : {0, 1, -1, INT_MIN}) {
        EXPECT_EQ(cli.parser->parseArgsVector(argc, none, cli.result), 0);
        EXPECT_EQ(cli.parser->parseArgsVector(argc, nullptr, cli.result), 0);
    }
    EXPECT_EQ(cli.stored("level l"), "level[low] l[low] ");
}

TEST(OddHost, givesAnyBytesAndGetsThemBack) {
    const std::string texts[] = {everyByte(), std::string(10000, 'x'), "\xC0\x80\xED\xA0\x80\xFF\xFE",
                                 "\t\r\n ="};
    for (const std::string& text : texts) {
        Cli cli;
        Cli strict(unknownIsError);
        cli.option("text")->tokenize('\0');
        EXPECT_EQ(cli.parseInto(cli.result, {"-text=" + text, "", text, "--", "", text}), "0");
        EXPECT_EQ(cli.values("text"), "[" + text + "]");
        EXPECT_EQ(cli.passedThrough(), "[][" + text + "]");
        EXPECT_EQ(strict.parseInto(strict.result, {"-" + text}), "2 Unknown option: -" + text);
        EXPECT_EQ(strict.parseInto(strict.result, {""}), "2 Unknown option: ");
    }
}

TEST(OddHost, choosesNamesThatAreHardToType) {
    Cli cli(unknownIsError);
    const char* const names[] = {"a=b", "two words", "\xC3\xA9t\xC3\xA9", "\xFF", "\x80\x81", "=",
                                 " ",   "\t-\t"};
    for (const char* name : names)
        cli.option(name, qel_empty);
    // What follows '=' is a value, so such a name can only be begun.
    EXPECT_EQ(cli.parse("-a --a -\xC3 -\xFF --\x80"), "0");
    EXPECT_EQ(cli.parseInto(cli.result, {"-two ", "- ", "--\t-"}), "0");
    EXPECT_EQ(cli.parse("-a=b"), "2 Option 'a=b'does not requires a value in argument: '-a=b'");
    EXPECT_EQ(cli.parse("-="),
              "2 Ambiguous option '' in argument: '-=', could be: 'a=b', 'two words', "
              "'\xC3\xA9t\xC3\xA9', '\xFF', '\x80\x81', '=', ' '");
    for (const char* name : names)
        EXPECT_EQ(cli.occurrences(name).size(), name[0] == 'a' ? 2u : name[0] == '=' ? 0u : 1u) << name;
}

TEST(OddHost, givesAMillionArguments) {
    Cli cli;
    cli.option("number,n", qel_int);
    cli.option("verbose,v", qel_bool);
    constexpr int count = 500000;
    std::vector<std::string> arguments(2 * count, "--verb");
    for (int i = 0; i < count; ++i)
        arguments[static_cast<std::size_t>(2 * i)] = "-n=" + std::to_string(i % 1000) + ",7";
    EXPECT_EQ(cli.parseInto(cli.result, arguments), "0");
    EXPECT_EQ(cli.occurrences("verbose").size(), static_cast<std::size_t>(count));
    int expected = 0;
    Value value = cli.result->get("n");
    for (; value.status == 0 && value.value.asInt() == (expected % 2 == 0 ? expected / 2 % 1000 : 7);
         ++expected)
        value = cli.result->next("");
    EXPECT_EQ(value.status, 1);
    EXPECT_EQ(expected, 2 * count);
}

TEST(OddHost, givesHugeArgumentsForAFewTimesTheirSize) {
    Cli cli(unknownIsError);
    cli.option("text,t")->tokenize('\0');
    cli.option("list,l");
    const std::string huge(std::size_t{16} << 20, 'x');
    const std::size_t before = memory.live;
    for (const std::string& argument : {"-t=" + huge, "-l=" + huge, "-" + huge, huge})
        cli.parseInto(cli.result, {argument});
    EXPECT_EQ(cli.values("t").size(), huge.size() + 2);
    EXPECT_EQ(cli.values("l").size(), huge.size() + 2);
    EXPECT_LT(memory.live - before, 8 * huge.size());  // four texts and two errors
}

TEST(OddHost, registersInTheWorstOrders) {
    constexpr unsigned count = 4000;
    const auto name = [](unsigned number) { return "word-" + std::to_string(100000 + number) + "-end"; };
    for (const unsigned step : {count - 1, 1U, 1999U}) {  // descending, ascending, mixed
        Cli cli(unknownIsError);
        for (unsigned i = 0, number = step; i < count; ++i, number = (number + step) % count)
            cli.option(name(number).c_str(), qel_empty);
        for (unsigned i = 0; i < count; i += 499)
            EXPECT_EQ(cli.parseInto(cli.result, {"-w-" + std::to_string(100000 + i) + "-", "-" + name(i)}),
                      "0");
        EXPECT_EQ(cli.occurrences(name(499).c_str()).size(), 2u);
        EXPECT_EQ(cli.parse("-w-10049-").substr(0, 11), "2 Ambiguous");
    }
}

/// Names of very many words, and parsers that handle each other's events for ever.
void* useLittleStack(void*) {
    Cli cli(unknownIsError);
    Cli others[2];
    std::string name;
    for (unsigned i = 0; i < 80000; ++i)
        name += "word-";
    for (const char* end : {"last", "longer", "lasting"})
        cli.option((name + end).c_str(), qel_empty);
    for (unsigned i = 0; i < 70; ++i)  // so many that they are brought in order on the way
        cli.option(("other-name" + std::to_string(i)).c_str(), qel_empty);
    std::string typed = "-w";
    typed.append(80000, '-');
    for (unsigned i = 0; i < 40; ++i)
        EXPECT_EQ(cli.parse(typed + "lo"), "0");
    EXPECT_EQ(cli.occurrences((name + "longer").c_str()).size(), 40u);
    EXPECT_EQ(cli.parse(typed + "la").substr(0, 11), "2 Ambiguous");
    EXPECT_EQ(cli.parse(typed + "l-").substr(0, 9), "2 Unknown");
    cli.option("n");
    cli.parser->addHandler(others[0].parser);
    others[0].parser->addHandler(others[1].parser);
    others[1].parser->addHandler(cli.parser);
    EXPECT_EQ(cli.parse("-n=x")[0], '4');
    EXPECT_NE(cli.parser->getDescription(), nullptr);
    return nullptr;
}

TEST(OddHost, hasASmallStack) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 128 << 10);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, useLittleStack, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

// Both processes end the parse, and what the one reads does not reach the other.
TEST(OddHost, becomesTwoProcessesInTheMiddleOfAParse) {
    struct : EventHandler {
        bool onOptionParse(const char*) override { return child = fork(), true; }
        pid_t child = 0;
    } handler;
    Cli cli;
    cli.option("fork,f", qel_empty);
    cli.option("n")->defaultValue("none");
    cli.parser->addHandler(&handler);
    EXPECT_EQ(cli.parse("-f -- a"), "0");
    cli.parser->removeHandler(&handler);
    const bool isChild = handler.child == 0;
    EXPECT_EQ(cli.parse(isChild ? "-n=child" : "-n=parent"), "0");
    const std::string read = cli.values("n") + cli.passedThrough();
    if (isChild) _exit(read == "[child][a]" ? 0 : 1);
    EXPECT_EQ(read, "[parent][a]");
    int status = -1;
    waitpid(handler.child, &status, 0);
    EXPECT_EQ(status, 0);
}

// Texts that a parser has handed out stay; nothing else does.
TEST(OddHost, parsesAgainAndAgain) {
    std::string events;
    Cli cli(unknownIsError);
    struct : EventHandler {
    } handler;
    cli.parser->addHandler(&handler);
    cli.option("list,l")->allowValue("fast")->allowValue("slow")->defaultValue("slow");
    const auto live = [&cli](int parses, bool distinct) {
        for (int i = 0; i < parses; ++i) {
            IParseResult* result = nullptr;
            cli.parser->createResult(&result);
            const std::string unknown = distinct ? "-unknown" + std::to_string(i) : "-unknown";
            cli.parseInto(result, {"-l=fa,slow", "--li", "fast", unknown, "never read"});
            result->destroy();
        }
        cli.parser->getErrorDesc();
        return memory.live;
    };
    const std::size_t before = live(3, false);
    EXPECT_EQ(live(100000, false), before);
    EXPECT_GT(live(1000, true), before + 1000);
}

TEST(OddHost, hasClosedItsStandardStreams) {
    const auto parse = [](auto close) {
        close();
        Cli cli(unknownIsError);
        cli.option("n", qel_int);
        cli.option("n", qel_int);  // refused on standard error
        const bool isRight = cli.parseInto(cli.result, {logSwitch, "-n=1"}) == "0" &&
                             cli.values("n") == "[1]" &&
                             cli.parseInto(cli.result, {logSwitch, "-x"}) == "2 Unknown option: -x";
        _exit(isRight ? 0 : 1);
    };
    EXPECT_EXIT(parse([] { ::close(1), ::close(2); }), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(parse([] { std::fclose(stdout); }), testing::ExitedWithCode(0), "");
}

}  // namespace

}  // namespace vorn_3_1::public_tests
