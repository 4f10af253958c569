// Commands, nested and shortened, and the layers that options come from.
#include "host/fixture.h"
#include "support/any_tool.h"
#include "vorn/host/help.h"

namespace {

struct Commands : testing::Test {
    host::Parser parser{"nctl", "Keeps notes."};
    host::Key<std::string> store = parser.add<std::string>("store", "").defaultTo("~/.notes").global().key();
    host::Key<std::vector<int>> tags = parser.add<int>("tag,t", "").repeated().global().key();
    host::Key<bool> colour = parser.addSwitch("colour", "").global().key();
    host::Key<bool> dry = parser.addFlag("dry", "").key();
    host::Parser& add = parser.command("add,new,newer", "Adds a note.");
    host::Key<std::string> text = add.addPositional<std::string>("text", "").key();
    host::Key<int> priority = add.add<int>("priority", "").defaultTo(3).key();
    host::Parser& remove = parser.command("remove-all", "Removes notes.");
    host::Key<std::string> why = remove.add<std::string>("why", "").required().key();
    host::Key<bool> force = remove.addSwitch("force,f", "").key();
    host::Key<bool> quick = remove.addFlag("quick,q", "").key();
    host::Parser& remote = parser.command("remote", "");
    host::Parser& append = parser.command("append", "");
    host::Parser& show = remote.command("show", "");
    host::Key<std::vector<std::string>> names = show.addPositional<std::string>("name", "").atLeast(0).key();
    host::Key<bool> verbose = remote.addFlag("verbose", "").global().key();
    Commands() {
        parser.version("1");
        remove.exclusive({force, quick});
        remote.addFlag("depth", "");
        show.addFlag("depth", "");
    }
};

TEST_F(Commands, areChosenByTheFirstArgumentThatIsNoOption) {
    const struct {
        Texts typed;
        const host::Parser* command;
        const char* text;
    } rows[] = {
        {{"add", "x"}, &add, ""},
        {{"ad", "x"}, &add, ""},
        {{"n", "x"}, &add, ""},  // two synonyms of one command that begin alike
        {{"--dry", "--", "add", "--", "-x"}, &add, ""},
        {{"add", ""}, &add, ""},
        {{"r-a", "--why=x"}, &remove, ""},
        {{"remote", "show", "a", "b"}, &show, ""},
        {{"remote", "sh"}, &show, ""},
        {{"--"}, nullptr, "missing command: add, remove-all, remote, append"},
        {{}, nullptr, "missing command: add, remove-all, remote, append"},
        {{"remote"}, &remote, "missing command: show"},
        {{"rem"}, &remote, "missing command: show"},  // one word alone fits better than a part of two
        {{"a"}, nullptr, "command 'a' is ambiguous: add, append"},
        {{"ddd", "--help", "--bogus"}, nullptr, "unknown command 'ddd'; did you mean 'add'?"},
        {{"nwe"}, nullptr, "unknown command 'nwe'; did you mean 'new' or 'newer'?"},
        {{"remvoe"}, nullptr, "unknown command 'remvoe'; did you mean 'remove-all'?"},
        {{""}, nullptr, "unknown command ''"},
        {{"-"}, nullptr, "unknown command '-'"},
        {{"add=x"}, nullptr, "unknown command 'add=x'"},
        {{"add"}, &add, "missing argument: TEXT"},
        {{"remove-all"}, &remove, "missing option: --why TEXT"},
        {{"remove-all", "--why=x", "-f", "-q"}, &remove, "'--force' and '--quick' exclude each other"},
        {{"add", "--dry", "x"}, &add, "unknown option '--dry'; write it in front of the command 'add'"},
        {{"--why=x", "add", "x"}, &add, "unknown option '--why'; write it behind the command 'remove-all'"},
        {{"add", "x", "--version"},
         &add,
         "unknown option '--version'; write it in front of the command 'add'"},
        {{"--quick", "--name", "add", "x"},
         &add,
         "unknown option '--quick'; write it behind the command 'remove-all'\nunknown option '--name'"},
        {{"--no-force", "--depth", "add", "x"},
         &add,
         "unknown option '--no-force'; write it behind the command 'remove-all'\n"
         "unknown option '--depth'; write it behind the command 'remote' or 'remote show'"},
        {{"remote", "show", "--dry", "--wyh", "--depth"},
         &show,
         "unknown option '--dry'; write it in front of the command 'remote'\nunknown option '--wyh'"},
        {{"remove-all", "--why=x", "y"}, &remove, "unexpected argument 'y'"},
        {{"--bogus", "add", "--bogus2", "x"}, &add, "unknown option '--bogus'\nunknown option '--bogus2'"},
    };
    for (const auto& row : rows) {
        const host::Outcome outcome = parser.parse(row.typed);
        EXPECT_EQ(said(outcome), row.text) << joined(row.typed);
        EXPECT_EQ(outcome.result().command(), row.command) << joined(row.typed);
    }
}

TEST_F(Commands, takeGlobalOptionsOnEitherSide) {
    const host::Outcome outcome = parser.parse({"-t", "1", "--no-col", "remote", "--tag=2", "--verb", "show",
                                                "a", "--t=3", "b", "--colour", "--store=s"});
    EXPECT_EQ(said(outcome), "");
    const host::Result& result = outcome.result();
    EXPECT_EQ(result[tags], (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(result[store], "s");
    EXPECT_TRUE(result[colour]);
    EXPECT_TRUE(result[verbose]);
    EXPECT_EQ(result.origin(store).text(), "argument 12");
    EXPECT_EQ(result.value<std::string>("store"), "s");  // names are looked up outwards
    const auto files = result.given(names);
    EXPECT_EQ(result.values(tags, host::before(files[0].position)), (std::vector<int>{1, 2}));
    EXPECT_EQ(result.values(tags, host::between(files[0].position, files[1].position)),
              (std::vector<int>{3}));
    EXPECT_THROW((void)result[text], std::logic_error);  // of a command that was not chosen
    EXPECT_THROW((void)result[priority], std::logic_error);
    EXPECT_EQ(parser.parse({"add", "x"}).result()[priority], 3);
}

TEST_F(Commands, areExplainedByTheWordHelp) {
    const struct {
        Texts typed;
        const host::Parser* asked;
        const char* text;  // if it is not help
    } rows[] = {
        {{"help"}, &parser, ""},
        {{"help", "add"}, &add, ""},
        {{"help", "rem", "sh", "what", "--ever"}, &show, ""},
        {{"remote", "help", "show"}, &show, ""},
        {{"--dry", "help", "--colour", "remote"}, &remote, ""},
        {{"help", "--help"}, &parser, ""},
        {{"help", "remvoe"}, nullptr, "unknown command 'remvoe'; did you mean 'remove-all'?"},
        {{"help", "remote", "help"}, nullptr, "unknown command 'help'"},
        {{"hel"}, nullptr, "unknown command 'hel'"},
        {{"add", "help"}, nullptr, ""},  // an argument like any other
    };
    for (const auto& row : rows) {
        const host::Outcome outcome = parser.parse(row.typed);
        const bool isHelp = outcome.asked == host::Outcome::Asked::help;
        EXPECT_EQ(isHelp, row.asked != nullptr) << joined(row.typed);
        EXPECT_EQ(outcome.askedParser, row.asked) << joined(row.typed);
        if (!isHelp) {
            EXPECT_EQ(said(outcome), row.text);
        }
    }
    EXPECT_EQ(parser.parse({"--help", "help", "add"}).askedParser, &parser);
    host::Parser& own = parser.command("helpers", "");
    EXPECT_EQ(parser.parse({"help"}).result().command(), &own);  // shortened
}

TEST(CommandRules, mayNeedWhatTheOuterParserHas) {
    host::Parser parser("tool");
    const auto user = parser.add<std::string>("user", "").global().key();
    const auto sure = parser.addSwitch("sure", "").key();
    host::Parser& outer = parser.command("remote", "");
    host::Parser& command = outer.command("push", "");
    command.addFlag("force", "").needs(user).needs(sure);
    const struct {
        Texts typed;
        const char* text;
    } rows[] = {
        {{"remote", "push"}, ""},
        {{"--sure", "remote", "push", "--force", "--user=x"}, ""},
        {{"--no-sure", "--user=x", "remote", "push", "--force"}, "'--force' needs '--sure' as well"},
        {{"remote", "push", "--force", "--user="},
         "'--user=' has no value\n'--force' needs '--sure' as well"},  // it is not missing as well
    };
    for (const auto& row : rows)
        EXPECT_EQ(said(parser.parse(row.typed)), row.text) << joined(row.typed);
    EXPECT_NE(command.help().find("(needs --user, --sure)"), std::string::npos);
    EXPECT_EQ(thrownBy<host::RegistrationError>(
                  [&] { parser.addFlag("x", "").needs(outer.addFlag("y", "").key()); }),
              "'x' needs another option: the key belongs to another parser; use keys of this one or of an "
              "outer one");
}

TEST(Secrets, areNotShownByAnybody) {
    host::Parser parser("tool");
    const auto token =
        parser.add<std::string>("token,t", "Who you are.")
            .defaultTo("hush")
            .environment("TOKEN")
            .secret()
            .check([](const std::string& text) { return std::string(text == "old" ? "expired" : ""); })
            .key();
    (void)parser.add<int>("pins", "").list(',').secret().environment("PINS");
    const std::vector<host::Variable> environment = {{"TOKEN", "hush"}, {"PINS", "12,34"}};
    host::HelpStyle style;
    style.environment = environment;
    EXPECT_EQ(parser.help(style),
              "Usage: tool [OPTION...]\n\nOptions:\n"
              "  -t, --token TEXT  Who you are. (environment: TOKEN)\n"
              "      --pins N,...  (can be repeated; environment: PINS)\n"
              "  -h, --help        Show this help and exit.\n");
    EXPECT_TRUE(parser.options(environment)[0].isSecret);
    EXPECT_TRUE(parser.options(environment)[0].defaults.empty());
    const host::Outcome outcome = parser.parse({}, environment);
    EXPECT_EQ(outcome.result()[token], "hush");
    EXPECT_EQ(parser.effective(outcome.result()),
              "# TOKEN\n# --token is secret\n# PINS\n# --pins is secret\n");
    const struct {
        Texts typed;
        const char* text;
    } rows[] = {
        {{"-t", "old"}, "'***' is refused for '--token': expired"},
        {{"--token", "-old"}, "'--token' needs a value; for one that begins with '-', write '--token=-***'"},
        {{"--pins=1,old"}, "'***' is not a whole number, which '--pins' takes"},
        {{"--token old"}, "unknown option '--token ***'; write '--token=***'"},
        {{"--pins=1,"}, "'***' has an empty item"},
        {{"--pins=99999999999"}, "'***' is too large for '--pins': at most 2147483647"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(parser.parse(row.typed).error().text(), row.text);
    parser.settings("token: old", "f");
    EXPECT_EQ(parser.parse({}).error().text(),
              "f:1: 'token: ***' is no option, and settings hold nothing else; write '--token=***'");
}

TEST_F(Commands, mayReadJoinedLettersOrDropTheUnknownAlone) {
    add.addFlag("a", "");
    add.addFlag("b", "");
    add.joinedShort();
    remove.ignoreUnknown();
    EXPECT_EQ(said(parser.parse({"add", "-ab", "x"})), "");
    EXPECT_EQ(said(parser.parse({"remove-all", "--why=x", "--bogus", "y"})), "");
    EXPECT_EQ(said(parser.parse({"--bogus", "remove-all", "--why=x", "-fq"})), "unknown option '--bogus'");
    parser.joinedShort();  // counts for all commands
    EXPECT_EQ(said(parser.parse({"remove-all", "--why=x", "-fq"})),
              "'--force' and '--quick' exclude each other");
}

/// What all layers together give a tool, and where it comes from, or what is wrong with them.
std::string inForce(const Texts& settings, const std::vector<host::Variable>& environment,
                    const Texts& typed) {
    host::Parser parser("tool");
    const auto n = parser.add<int>("n", "").defaultTo(1).environment("N").key();
    const auto list = parser.add<int>("list", "").list(',').environment("LIST").key();
    const auto toggle = parser.addSwitch("toggle", "").environment("TOGGLE").key();
    const auto flag = parser.addFlag("flag", "").environment("FLAG").key();
    const auto count = parser.addCount("count", "").environment("COUNT").key();
    parser.exclusive({toggle, flag});
    for (std::size_t i = 0; i < settings.size(); ++i)
        parser.settings(settings[i], std::string(1, static_cast<char>('a' + i)) + ".conf");
    const host::Outcome outcome = parser.parse(typed, environment);
    if (!outcome) return said(outcome);
    const host::Result& result = outcome.result();
    Texts items;
    for (const int item : result[list])
        items.push_back(std::to_string(item));
    std::string all;
    const auto add = [&](const std::string& text, const host::AnyKey& key) {
        const std::string origin = result.origin(key).text();
        all += text + (origin == "the default" ? "" : " (" + origin + ")") + ", ";
    };
    add("n " + std::to_string(result[n]), n);
    if (!items.empty()) add("list " + joined(items, ","), list);
    if (result[toggle]) add("toggle", toggle);
    if (result[flag]) add("flag", flag);
    if (result[count] > 0) add("count " + std::to_string(result[count]), count);
    return all.substr(0, all.size() - 2);
}

TEST(Layers, replaceThoseBelow) {
    const struct {
        const char* expected;
        Texts settings = {};
        std::vector<host::Variable> environment = {};
        Texts typed = {};
    } rows[] = {
        {"n 1"},
        {"n 2 (a.conf:1), list 1,2,3 (a.conf:4), count 2 (a.conf:6)",
         {"--n=2\n\n--list=1\n--list=2,3\n--count\n--count"}},
        {"n 2 (a.conf:1), list 3 (b.conf:1), count 1 (a.conf:3)", {"--n=2\n--list=1,2\n--count", "--list=3"}},
        {"n 3 (N), list 7,8 (LIST), toggle (TOGGLE), count 4 (COUNT)",
         {"--n\n2\n--list=1"},
         {{"N", "3"}, {"LIST", "7,8"}, {"COUNT", "4"}, {"TOGGLE", "on"}}},
        {"n 2 (a.conf:1), toggle (a.conf:2)",
         {"--n=2\n--toggle"},
         {{"N", ""}, {"TOGGLE", ""}}},  // empty: not set
        {"n 4 (argument 2), list 9 (argument 1), count 1 (argument 3)",
         {"--n=2"},
         {{"N", "3"}, {"LIST", "7"}, {"COUNT", "3"}},
         {"--list=9", "-n=4", "--count"}},
        // words in variables of switches, flags and counts; what is off replaces, too
        {"n 1", {"--toggle\n--count"}, {{"TOGGLE", "no"}, {"COUNT", "0"}}},
        {"n 1", {"--flag"}, {{"FLAG", "false"}}},
        {"n 1, flag (FLAG), count 1000 (COUNT)", {}, {{"FLAG", "1"}, {"COUNT", "1000"}}},
        {"n 1", {}, {{"TOGGLE", "true"}}, {"--no-toggle"}},
        // of an exclusive group the highest layer that has a member counts
        {"n 1, flag (argument 1)", {"--toggle"}, {}, {"--flag"}},
        {"n 1, toggle (TOGGLE)", {"--flag"}, {{"TOGGLE", "yes"}}},
        {"n 1, flag (a.conf:1)", {"--flag"}, {}, {"--no-toggle"}},
        {"n 1, toggle (b.conf:1)", {"--flag", "--toggle"}},
        {"'--toggle' and '--flag' exclude each other", {"--flag\n--toggle"}},
        // mistakes
        {"TOGGLE: 'maybe' is neither yes nor no, which '--toggle' takes", {}, {{"TOGGLE", "maybe"}}},
        {"COUNT: '-1' is not a whole number from 0 to 1000, which '--count' takes", {}, {{"COUNT", "-1"}}},
        {"COUNT: '1001' is not a whole number from 0 to 1000, which '--count' takes",
         {},
         {{"COUNT", "1001"}}},
        {"COUNT: 'x' is not a whole number from 0 to 1000, which '--count' takes", {}, {{"COUNT", "x"}}},
        {"LIST: '1,,2' has an empty item", {}, {{"LIST", "1,,2"}}, {"--list=1"}},
        {"a.conf:12: unknown option '--cuont'; did you mean '--count'?", {"\n\n\n\n\n\n\n\n\n\n\n--cuont"}},
        {"a.conf:1: 'n=3' is no option, and settings hold nothing else; write '-n=3'\n"
         "a.conf:2: unknown option '-n 3'; write '-n=3'\n"
         "a.conf:3: unknown option '--list: 1'; write '--list=1'\n"
         "a.conf:4: 'toggle = no' is no option, and settings hold nothing else; write '--no-toggle'\n"
         "a.conf:5: 'toggle=yes' is no option, and settings hold nothing else; write '--toggle'\n"
         "a.conf:6: 'flag' is no option, and settings hold nothing else; write '--flag'\n"
         "a.conf:9: '--list' needs a value",
         {"n=3\n-n 3\n--list: 1\n toggle = no\ntoggle=yes\nflag\n--n\n5\n--list"}},
        {"a.conf:1: 'word' is no option, and settings hold nothing else\n"
         "a.conf:2: '--help' belongs on the command line\n"
         "a.conf:3: '--' is no option, and settings hold nothing else\n"
         "a.conf:4: '-n' needs a value",
         {"word\n--help\n--\n--n"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(inForce(row.settings, row.environment, row.typed), row.expected);
}

TEST(Settings, ofFilesMayBeMissingWhereThatIsAllowed) {
    const MemoryFile file("\xEF\xBB\xBF--n=5\r\n");
    host::Parser parser("tool");
    const auto n = parser.add<int>("n", "").key();
    parser.settings("/no/such/file", host::Missing::allowed).settings(file.path);
    EXPECT_EQ(parser.parse({}).result()[n], 5);
    EXPECT_EQ(parser.parse({}).result().origin(n).text(), file.path + ":1");
    EXPECT_TRUE(parser.settings("/dev/null/file", host::Missing::allowed).parse({}));
    EXPECT_EQ(thrownBy<std::invalid_argument>([&] { parser.settings(std::string(1, '\0'), "x"); }),
              "vorn: settings hold a NUL character");
    const std::string tooLong(5000, 'x');
    host::Parser other("other");
    other.settings(tooLong, host::Missing::allowed);
    EXPECT_NE(said(other.parse({})).find(": File name too long"), std::string::npos);
    parser.settings("/no/such").settings("/dev/zero").settings("/", host::Missing::allowed);
    EXPECT_EQ(said(parser.parse({})),
              "cannot read '/no/such': No such file or directory\n"
              "cannot read '/dev/zero': it holds a NUL character and is no text\n"
              "cannot read '/': Is a directory");
}

TEST(Settings, ofACommandGoBeforeThoseOfTheOuterParser) {
    host::Parser parser("tool");
    const auto list = parser.add<int>("list", "").list(',').global().environment("LIST").key();
    host::Parser& command = parser.command("do", "");
    const auto own = command.add<int>("own", "").environment("OWN").key();
    parser.settings("--list=1", "outer").settings("--list=4", "another");
    command.settings("--list=2\n--own=3", "inner");
    const host::Outcome outcome = parser.parse({"do"});
    EXPECT_EQ(outcome.result()[list], std::vector<int>{2});  // also before later ones of the outer parser
    EXPECT_EQ(outcome.result()[own], 3);
    EXPECT_EQ(parser.parse({"do"}, {{"OWN", "4"}}).result()[own], 4);
    EXPECT_EQ(parser.parse({"do"}, {{"LIST", "4"}}).result()[list], std::vector<int>{4});
    EXPECT_EQ(said(parser.parse({"do"}, {{"OWN", "x"}})),
              "OWN: 'x' is not a whole number, which '--own' takes");
}

TEST(Settings, ofACommandAreReplacedByTheEnvironmentOfTheOuterParser) {
    host::Parser parser("tool");
    const auto flag = parser.addFlag("flag", "").global().environment("FLAG").key();
    const auto count = parser.addCount("count", "").global().environment("COUNT").key();
    const auto toggle = parser.addSwitch("toggle", "").global().environment("TOGGLE").key();
    const auto mode = parser.add<int>("mode", "").global().implicit(3).environment("MODE").key();
    host::Parser& command = parser.command("do", "");
    command.settings("--flag\n--count\n--toggle\n--mode\n--mode=2", "inner");
    const host::Outcome plain = parser.parse({"do"});
    EXPECT_TRUE(plain.result()[flag] && plain.result()[toggle]);
    EXPECT_EQ(plain.result()[count], 1);
    EXPECT_EQ(plain.result()[mode], 2);
    const host::Outcome outcome =
        parser.parse({"do"}, {{"FLAG", "no"}, {"COUNT", "5"}, {"TOGGLE", "no"}, {"MODE", "7"}});
    EXPECT_EQ(said(outcome), "");
    EXPECT_FALSE(outcome.result()[flag] || outcome.result()[toggle]);
    EXPECT_EQ(outcome.result()[count], 5);
    EXPECT_EQ(outcome.result()[mode], 7);
    command.settings("--mode=x", "wrong");  // what is replaced has to be right all the same
    EXPECT_EQ(said(parser.parse({"do"}, {{"MODE", "7"}})),
              "wrong:1: 'x' is not a whole number, which '--mode' takes");
}

/// What is typed, read or set for a tool, as a seed says it: some of it is known, and some of it right.
vorn_tests::Given givenBy(unsigned seed) {
    // The first twelve may stand in settings.
    // clang-format off
    const char* const arguments[] = {
        "--output-dir=one", "--out-f=x", "--out", "3", "-v", "-vv", "-n=7", "--most", "--no-m", "--x-y", "1;2", "copy",
        "--deep=once", "count-all", "-", "", "--", "-5", "--bogus", "-d=0.25", "-y=90s", "-o=4k", "--n=", "-x7",
        "--output-file=\"a\nb \"", "--help"};
    // clang-format on
    const auto below = [&seed](std::size_t limit) {
        seed = seed * 1664525U + 1013904223U;
        return seed / 65536U % static_cast<unsigned>(limit);
    };
    vorn_tests::Given given;
    given.columns = below(120);
    for (unsigned i = below(8); i > 0; --i)
        given.arguments.emplace_back(arguments[below(std::size(arguments))]);
    for (unsigned i = below(4); i > 0; --i)
        given.settings.append(arguments[below(12)]).append("\n");
    for (unsigned i = below(4); i > 0; --i)
        given.environment.push_back({std::string(1, static_cast<char>('A' + below(8))), i < 2 ? "yes" : "3"});
    return given;
}

TEST(Tools, ofAllKindsKeepTheirRules) {
    for (unsigned seed = 0; seed < 150; ++seed) {
        vorn_tests::AnyTool tool(seed);
        for (unsigned i = 0; i < 5; ++i)
            EXPECT_EQ(tool.brokenRule(givenBy(seed * 5 + i)), "")
                << "tool " << seed << ", input " << seed * 5 + i;
    }
}

TEST(Effective, namesTheOriginOfEachLine) {
    host::Parser parser("tool");
    parser.addCount("count", "").environment("COUNT");
    (void)parser.add<int>("list", "").list(',').defaultTo({1, 2});
    (void)parser.add<std::string>("text", "").repeated();
    parser.addSwitch("toggle", "");
    parser.add<int>("unset", "");
    parser.settings("\n--text=a", "s.conf");
    EXPECT_EQ(parser.effective(parser.parse({"--toggle"}, {{"COUNT", "2"}}).result()),
              "# COUNT\n--count\n--count\n# the default\n--list=1,2\n# s.conf:2\n--text=a\n# argument "
              "1\n--toggle\n");
    EXPECT_EQ(parser.effective(parser.parse({"--text=a\nb", "--text=c"}, {}).result()),
              "# the default\n--list=1,2\n# argument 1\n# --text has a value that no settings can hold\n"
              "# argument 2\n--text=c\n"
              "# the default\n--no-toggle\n");
    EXPECT_EQ(parser.effective(host::Result()), "");
}

TEST(Effective, readsBackWhereDefaultsMeetRules) {
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
    ASSERT_EQ(said(again), "");
    EXPECT_EQ(again.result()[a], 1);
    EXPECT_EQ(again.result()[items], (std::vector<int>{1, 2}));
}

TEST(Effective, leavesOutWhatIsNotInForceOrNobodyCouldSet) {
    enum class Mode { fast, safe };
    host::Parser parser("tool");
    (void)parser.add<Mode>("mode", "")
        .named({{"fast", Mode::fast}, {"safe", Mode::safe}})
        .defaultTo(Mode::safe);
    (void)parser.add<std::string>("empty", "").defaultTo("");
    parser.add<std::string>("return", "");
    (void)parser.add<int>("none", "").list(',').defaultTo(std::initializer_list<int>{});
    (void)parser.add<int>("old", "").defaultTo(1).deprecated("");
    const auto toggle = parser.addSwitch("toggle", "");
    const auto flag = parser.addFlag("flag", "");
    (void)parser.add<int>("needy", "").defaultTo(2).needs(flag.key());
    parser.addFlag("typed", "").onlyOnCommandLine();
    parser.exclusive({toggle.key(), flag.key()});
    parser.settings("--toggle", "low");
    host::Parser& command = parser.command("do", "");
    command.addFlag("inner", "");
    host::Parser& other = parser.command("other", "");
    (void)other.addPositional<int>("n", "").defaultTo(1);
    const host::Outcome outcome = parser.parse({"--flag", "--typed", "--return=x\r", "do"});
    EXPECT_EQ(parser.effective(outcome.result()),
              "# the default\n--mode=safe\n# the default\n# --empty has a value that no settings can hold\n"
              "# argument 3\n# --return has a value that no settings can hold\n"
              "# the default\n# --old=1\n# the default\n# --no-toggle\n# argument 1\n--flag\n"
              "# the default\n# --needy=2\n");
    EXPECT_EQ(command.effective(outcome.result()), "");
    EXPECT_EQ(other.effective(outcome.result()), "");  // it was not chosen
    EXPECT_EQ(other.effective(parser.parse({"other", "5"}).result()), "");
    parser.settings("--typed", "more");
    EXPECT_EQ(said(parser.parse({"do"})), "more:1: '--typed' belongs on the command line");
}

}  // namespace
