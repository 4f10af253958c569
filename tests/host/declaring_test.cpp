// Declaring: what contradicts itself is refused with a text that says what to change, and changes nothing.
#include <functional>

#include "host/fixture.h"
#include "vorn/host/help.h"

namespace {

using Declare = void (*)(host::Parser&);

enum class Mode { fast, safe };

constexpr std::initializer_list<int> oneAndTwo = {1, 2};

/// One row a contradiction. Each is made in the outermost parser, where it is refused at once or in verify(), and in a
/// command, where it counts when the command is chosen, and the others work all the same.
TEST(Contradictions, areRefusedWithWhatToChange) {
    using P = host::Parser&;
    const struct {
        const char* said;
        Declare declare;
    } rows[] = {
        // names
        {"'': a name is empty", [](P p) { p.add<int>(nullptr, nullptr); }},
        {"'': a name is empty", [](P p) { p.add<int>("a,", ""); }},
        {"'--a': a name is declared without its hyphens", [](P p) { p.add<int>("--a", ""); }},
        {"'.': a name needs a letter or a digit", [](P p) { p.addFlag(".", ""); }},
        {"'a=b': a name cannot hold '=', blanks or control characters", [](P p) { p.addFlag("a=b", ""); }},
        {"'a\\n': a name cannot hold '=', blanks or control characters", [](P p) { p.addFlag("a\n", ""); }},
        {"'a\\x7F': a name cannot hold '=', blanks or control characters",
         [](P p) { p.addFlag("a\x7F", ""); }},
        {"'{~': a name needs a letter or a digit", [](P p) { p.addFlag("{~", ""); }},
        {"'a\\x00': a name cannot hold '=', blanks or control characters",
         [](P p) { p.addFlag(std::string("a\0", 2), ""); }},
        {"' a': a name cannot hold '=', blanks or control characters", [](P p) { p.addFlag("b, a", ""); }},
        {"'a': this name is taken by 'a'; choose another one", [](P p) { p.add<int>("a,b,a", ""); }},
        {"'b': this name is taken by 'a'; choose another one",
         [](P p) { p.add<int>("a,b", ""), p.addFlag("c,b", ""); }},
        {"'no-a': this name is taken by 'a'; choose another one",
         [](P p) { p.addSwitch("a", ""), p.addFlag("no-a", ""); }},
        {"'no-a': this name is taken by 'no-a'; choose another one",
         [](P p) { p.addFlag("no-a", ""), p.addSwitch("b", "").synonym("a"); }},
        {"'no-a': a switch of this name could only be switched off", [](P p) { p.addSwitch("no-a", ""); }},
        {"'a': a synonym is one name, without ','", [](P p) { p.addFlag("a", "").synonym("b,c"); }},
        {"'a': this name is taken by 'a'; choose another one", [](P p) { p.addFlag("a", "").synonym("a"); }},
        // values
        {"'a': the end of its range is below the beginning", [](P p) { p.add<int>("a", "").range(2, 1); }},
        {"'a': the end of its range is below the beginning",
         [](P p) { p.add<int>("a", "").maximum(1).minimum(2); }},
        {"'a': its default: '5' is too large for '-a': at most 4",
         [](P p) { (void)p.add<int>("a", "").defaultTo(5).maximum(4); }},
        {"'a': its default: '5' is too large for '-a': at most 4",
         [](P p) { (void)p.add<int>("a", "").range(1, 4).defaultTo(5); }},
        {"'a': its implicit value: '0' is refused for '-a': zero",
         [](P p) {
             p.add<int>("a", "").implicit(0).check([](int n) { return std::string(n == 0 ? "zero" : ""); });
         }},
        {"'a': its default is not among the allowed values",
         [](P p) { (void)p.add<std::string>("a", "").allow("x").defaultTo("y"); }},
        {"'a': its default is not among the allowed values",
         [](P p) { (void)p.add<int>("a", "").list(',').defaultTo(oneAndTwo).allow(1, 3); }},
        {"'a': the choice 'x' stands twice", [](P p) { p.add<std::string>("a", "").allow("x", "y", "x"); }},
        {"'a': a choice is empty, and nobody could type it",
         [](P p) { p.add<std::string>("a", "").allow("x", ""); }},
        {"'a': a choice is empty, and nobody could type it",
         [](P p) {
             p.add<Mode>("a", "").named({{nullptr, Mode::fast}});
         }},
        {"'a': use either allow() or named()",
         [](P p) {
             p.add<int>("a", "").allow(1).named({{"two", 2}});
         }},
        {"'a': its type is not known; name its values with named(), or teach the type",
         [](P p) { p.add<Mode>("a", ""); }},
        {"'a': it has several defaults and takes one value; make it a list",
         [](P p) { (void)p.add<int>("a", "").defaultTo(oneAndTwo); }},
        {"'a': its choice holds the separator of the list",
         [](P p) { (void)p.add<std::string>("a", "").list().allow("b,c", "d"); }},
        {"'a': its default has an empty item",
         [](P p) {
             (void)p.add<std::string>("a", "").list().defaultTo({"b", ""});
         }},
        {"'a': a choice is out of its range", [](P p) { p.add<int>("a", "").range(1, 5).allow(9); }},
        {"'a': a list needs a separator", [](P p) { (void)p.add<int>("a", "").list('\0'); }},
        {"'a': the name of a variable is not empty and holds no '='",
         [](P p) { p.add<int>("a", "").environment("A=B"); }},
        // what excludes each other
        {"'a': it is required, so that its default is never used; drop one of the two",
         [](P p) { (void)p.add<int>("a", "").required().defaultTo(1); }},
        {"'a': it is required, so that its default is never used; drop one of the two",
         [](P p) { (void)p.add<int>("a", "").defaultTo(1).required(); }},
        {"'a': it is required and deprecated; drop one of the two",
         [](P p) { (void)p.add<int>("a", "").deprecated("").required(); }},
        {"'a': it is required, so that it cannot exclude another one",
         [](P p) {
             const auto a = p.add<int>("a", "").required().key();
             p.exclusive({a, p.addFlag("b", "").key()});
         }},
        {"'a': it is required, so that it cannot exclude another one",
         [](P p) {
             const auto a = p.add<int>("a", "");
             p.exclusive({a.key(), p.addFlag("b", "").key()});
             (void)a.required();
         }},
        {"'a': it is required, so that it cannot exclude another one",
         [](P p) {
             const auto a = p.addPositional<int>("a", "");
             const auto b = p.addPositional<int>("b", "").atLeast(0);  // these may be missing
             const auto c = p.addPositional<int>("c", "").optional();
             p.exclusive({b.key(), c.key(), p.addFlag("d", "").key()});
             p.exclusive({a.key(), p.addFlag("e", "").key()});
         }},
        {"'a': it is required, so that it cannot exclude another one",
         [](P p) {
             const auto a = p.addPositional<int>("a", "").atLeast(1);
             p.exclusive({a.key(), p.addFlag("b", "").key()});
         }},
        {"a rule for several options: the key belongs to another parser; use keys of this one",
         [](P p) {
             p.oneOf({p.addFlag("b", "").key(), host::Key<int>()});
         }},
        {"'a' needs another option: the key belongs to another parser; use keys of this one or of an outer "
         "one",
         [](P p) { p.addFlag("a", "").needs(host::Parser("x").addFlag("b", "").key()); }},
        {"a rule for several options needs two of them at least",
         [](P p) { p.exclusive({p.addFlag("a", "").key()}); }},
        {"'a': it stands twice in a rule",
         [](P p) {
             const auto a = p.addFlag("a", "").key();
             p.oneOf({a, p.addFlag("b", "").key(), a});
         }},
        {"'a': it needs itself",
         [](P p) {
             const auto a = p.addFlag("a", "");
             a.needs(a.key());
         }},
        {"'a': nobody can give it, since '-a' and '-b' have to be given together and exclude each other; "
         "drop "
         "needs() or the rule",
         [](P p) {
             const auto b = p.addFlag("b", "").key();
             p.exclusive({p.addFlag("a", "").needs(b).key(), b});
         }},
        {"'a': nobody can give it, since '-b' and '-d' have to be given together and exclude each other; "
         "drop "
         "needs() or the rule",
         [](P p) {
             const auto d = p.add<int>("d", "").key();
             const auto c = p.addFlag("c", "").needs(d).key();
             const auto b = p.addSwitch("b", "").key();
             p.addFlag("a", "").needs(b).needs(c);  // b and c are there without it
             p.oneOf({p.addFlag("e", "").key(), b, d});
         }},
        // positional arguments and commands
        {"'b': 'a' takes all that is left already",
         [](P p) {
             (void)p.addPositional<int>("a", "").atLeast(0), (void)p.addPositional<int>("b", "").atLeast(1);
         }},
        {"'b': rest takes everything from the first positional argument on; declare no other one",
         [](P p) { p.addPositional<int>("a", ""), p.rest("b", ""); }},
        {"'a': say atLeast(0) instead of optional()",
         [](P p) { (void)p.addPositional<int>("a", "").optional().atLeast(1); }},
        {"'b': a parser with commands has no positional arguments; give them to the commands",
         [](P p) { p.command("a", ""), p.addPositional<int>("b", ""); }},
        {"'b': a parser with commands has no positional arguments; give them to the commands",
         [](P p) { p.addPositional<int>("a", ""), p.command("b", ""); }},
        {"'b': there is a command of this name", [](P p) { p.command("a,b", ""), p.command("b", ""); }},
        {"'a': there is a command of this name", [](P p) { p.command("a,a", ""); }},
        {"'-a': a name is declared without its hyphens", [](P p) { p.command("-a", ""); }},
    };
    for (const auto& row : rows) {
        host::Parser parser("tool");
        EXPECT_EQ(thrownBy<host::RegistrationError>([&] { row.declare(parser), parser.verify(); }), row.said);
        host::Parser outer("tool");
        host::Parser& command = outer.command("do", "");
        const std::string atOnce = thrownBy<host::RegistrationError>([&] { row.declare(command); });
        outer.command("other", "").addFlag("f", "");
        EXPECT_TRUE(outer.parse({"other", "-f"}));
        if (!atOnce.empty()) {
            EXPECT_EQ(atOnce, row.said);
            continue;
        }
        EXPECT_EQ(thrownBy<host::RegistrationError>([&] { (void)outer.parse({"do"}); }), row.said);
        EXPECT_EQ(thrownBy<host::RegistrationError>([&] { outer.verify(); }),
                  std::string("tool do: ") + row.said);
        EXPECT_TRUE(outer.parse({"other"}));
    }
}

TEST(Contradictions, areAllListedByVerify) {
    host::Parser parser("tool");
    parser.add<Mode>("a", "");
    (void)parser.add<int>("b", "").defaultTo({1, 2});
    host::Parser& command = parser.command("do", "");
    command.addFlag("c", "");
    command.addSwitch("d,c", "");
    command.add<int>("e", "").range(2, 1);
    command.command("deep", "").addFlag("=", "");
    EXPECT_EQ(thrownBy<host::RegistrationError>([&] { parser.verify(); }),
              "'a': its type is not known; name its values with named(), or teach the type\n"
              "'b': it has several defaults and takes one value; make it a list\n"
              "tool do: 'c': this name is taken by 'c'; choose another one\n"
              "tool do: 'e': the end of its range is below the beginning\n"
              "tool do deep: '=': a name needs a letter or a digit");
}

TEST(Contradictions, leaveTheParserAsItWas) {
    host::Parser parser("tool");
    const auto number = parser.add<int>("number", "").range(1, 10).allow(2, 3).implicit(3).check([](int n) {
        return std::string(n == 2 ? "two" : "");
    });
    const auto toggle = parser.addSwitch("toggle", "");
    parser.addFlag("no-other", "");
    const std::function<void()> refused[] = {
        [&] { parser.add<int>("fresh,number", ""); },
        [&] { parser.addSwitch("other", ""); },
        [&] { toggle.synonym("other"); },
        [&] { number.synonym("toggle"); },
        [&] { number.range(4, 3); },
        [&] { number.minimum(4); },
        [&] { number.allow(2); },
        [&] {
            number.named({{"two", 2}});
        },
        [&] { (void)number.defaultTo(2); },
        [&] {
            (void)number.defaultTo({3, 4});
        },
        [&] { number.implicit(1); },
        [&] { number.check([](int n) { return std::string(n == 3 ? "three" : ""); }); },
        [&] { (void)number.list('\0'); },
        [&] { number.environment(""); },
        [&] { number.needs(host::AnyKey()); },
    };
    for (const auto& declare : refused)
        EXPECT_NE(thrownBy<host::RegistrationError>(declare), "");
    parser.verify();
    const struct {
        const char* typed;
        const char* text;
    } rows[] = {
        {"--number=3", ""},
        {"--number", ""},
        {"--number=2", "'2' is refused for '--number': two"},
        {"--number=11", "'11' is not allowed for '--number': 2, 3"},
        {"--fresh", "unknown option '--fresh'"},
        {"--other", "unknown option '--other'; did you mean '--no-other'?"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(said(parser.parse({row.typed}, {{"", "x"}})), row.text);
    EXPECT_EQ(parser.parse({}).result().value<int>("number"), std::nullopt);
    toggle.synonym("fresh");  // now it is free
    EXPECT_TRUE(parser.parse({"--no-fresh"}));
}

TEST(Declarations, mayComeAfterAParse) {
    host::Parser parser("tool");
    host::Parser& command = parser.command("do", "");
    const auto one = command.addFlag(std::string_view("one--").substr(0, 3), "").synonym("uno");
    EXPECT_TRUE(parser.parse({"do", "--uno"}));
    for (const char* name : {"first", "a-name-that-is-longer-than-a-small-string", "third", "fourth"})
        one.synonym(name);
    const auto global = parser.addFlag("global", "").global().key();
    const auto two = command.addCount("two", "").key();
    const host::Outcome outcome = parser.parse({"do", "--uno", "--two", "--global", "--fourth", "--third"});
    EXPECT_EQ(said(outcome), "");
    EXPECT_EQ(outcome.result()[one.key()], true);
    EXPECT_EQ(outcome.result()[two], 1);
    EXPECT_EQ(outcome.result()[global], true);
    EXPECT_EQ(thrownBy<host::RegistrationError>([&] { command.addFlag("fourth", ""); }),
              "'fourth': this name is taken by 'one'; choose another one");
}

TEST(Declarations, areNotMadeInTheMiddleOfAParse) {
    host::Parser parser("tool");
    int calls = 0;
    std::function<void()> inside = [] {};
    const auto number = parser.add<int>("n", "");
    number.check([&](int) {
        ++calls;
        inside();
        return std::string();
    });
    const std::string parsing =
        "vorn: the parser is parsing already; a check must not parse with the same parser";
    const std::string declaring = "vorn: the parser is parsing; a check must not declare anything";
    const struct {
        std::function<void()> inside;
        std::string thrown;
    } rows[] = {
        {[&] { (void)parser.parse({"-n=2"}); }, parsing},
        {[&] { parser.addFlag("x", ""); }, declaring},
        {[&] { parser.command("x", ""); }, declaring},
        {[&] { number.allow(1); }, declaring},
        {[&] { (void)host::Parser("other").parse({}); }, ""},  // another parser may do all it can
        {[] { throw std::logic_error("the host's own"); }, "the host's own"},
        {[&] {
             const char* const line[] = {"tool", "--completion", "answer", "fish", "-n", ""};
             (void)parser.parseOrExit(6, line);
         },
         "vorn: the parser is parsing already; a check must not ask the same parser"},
    };
    for (const auto& row : rows) {
        inside = row.inside;
        EXPECT_EQ(thrownBy<std::logic_error>([&] { (void)parser.parse({"-n=1"}); }), row.thrown);
        inside = [] {};
        EXPECT_TRUE(parser.parse({"-n=1"}));  // works afterwards
    }
    inside = [] { throw 5; };
    EXPECT_THROW((void)parser.parse({"-n=1"}), int);
    EXPECT_EQ(calls, 15);
    EXPECT_EQ(thrownBy<std::logic_error>([&] { (void)parser.command("c", "").parse({}); }),
              "vorn: a command is parsed by its outermost parser");
}

/// Late, after the names were given to --help and its like.
TEST(BuiltIns, giveWayToWhatComesLater) {
    const std::function<void(host::Parser&)> late[] = {
        [](host::Parser& p) { p.addFlag("taken,h", ""); },
        [](host::Parser& p) { p.addFlag("taken", "").synonym("h"); },
        [](host::Parser& p) { p.addFlag("taken,h", "").global(); },
    };
    for (const auto& declare : late) {
        for (const bool isHelpFirst : {true, false}) {
            host::Parser parser("tool");
            const auto one = parser.addFlag("one", "").hidden();
            host::Parser& command = parser.command("do", "");
            command.addFlag("two", "");
            if (isHelpFirst) (void)parser.help(), (void)command.help();
            EXPECT_EQ(parser.parse({"-h"}).asked, host::Outcome::Asked::help);
            EXPECT_EQ(parser.parse({"do", "-h"}).asked, host::Outcome::Asked::help);
            declare(parser);
            const host::Outcome outcome = parser.parse({"-h", "--one", "do"});
            EXPECT_EQ(said(outcome), "");
            EXPECT_TRUE(outcome.result().isGiven("taken"));
            EXPECT_TRUE(outcome.result()[one.key()]);
            for (const char* builtIn : {"--help", "--help-all"})
                EXPECT_EQ(parser.parse({builtIn}).asked, host::Outcome::Asked::help);
            EXPECT_EQ(parser.options().back().names, Texts{"help-all"});
            parser.verify();
        }
    }
    host::Parser parser("tool");
    EXPECT_EQ(parser.parse({"--help"}).asked, host::Outcome::Asked::help);
    EXPECT_EQ(thrownBy<host::RegistrationError>([&] { parser.addFlag("help,a=", ""); }),
              "'a=': a name cannot hold '=', blanks or control characters");
    EXPECT_EQ(parser.parse({"--help"}).asked, host::Outcome::Asked::help);
    const auto own = parser.add<int>("help", "").key();
    EXPECT_EQ(parser.parse({"--help=3"}).result()[own], 3);
    EXPECT_EQ(said(parser.parse({"-h=3"})), "");  // the host's, shortened
}

TEST(Names, ofGlobalOptionsAreNobodyElses) {
    using P = host::Parser&;
    const struct {
        Declare declare;
        const char* said;
    } rows[] = {
        {[](P p) { p.addFlag("all", ""); }, "'all': the global option 'all' has this name"},
        {[](P p) { p.addFlag("no-\xC3\xA4", ""); }, "'\xC3\xA4': the global option '\xC3\xA4' has this name"},
        {[](P p) { p.addFlag("no-all", ""); }, ""},  // a flag has no such form
        {[](P p) { p.addSwitch("own", ""); }, ""},
    };
    for (const auto& row : rows) {
        host::Parser parser("tool");
        parser.addFlag("all", "").global();
        parser.addSwitch("\xC3\xA4", "").global();
        parser.addFlag("own", "");
        row.declare(parser.command("do", ""));
        EXPECT_EQ(thrownBy<host::RegistrationError>([&] { (void)parser.parse({"do"}); }), row.said);
    }
}

TEST(BuiltIns, leaveNamesThatAHostHasTaken) {
    for (const std::string name : {"h", "help", "version", "help-all"}) {
        const std::string typed = (name == "h" ? "-" : "--") + name;
        host::Parser parser("tool");
        parser.version("1").addFlag("hidden", "").hidden();
        const auto flag = parser.addFlag(name, "").global().key();
        parser.command("do", "").addFlag("in", "").hidden();
        for (const Texts& line : {Texts{typed}, Texts{"do", typed}}) {
            const host::Outcome outcome = parser.parse(line);
            EXPECT_EQ(outcome.asked, host::Outcome::Asked::nothing) << joined(line);
            EXPECT_TRUE(outcome.result()[flag]) << joined(line);
        }
        parser.verify();
    }
    host::Parser parser("tool");
    parser.version("1");
    parser.addPositional<std::string>("version", "");  // has no name on the command line
    parser.addPositional<std::string>("help", "");
    EXPECT_EQ(parser.parse({"--version"}).asked, host::Outcome::Asked::version);
    EXPECT_EQ(parser.parse({"--help"}).asked, host::Outcome::Asked::help);
}

}  // namespace
