// Rules: what is required, excludes or needs what, and how many positional arguments there are.
#include "host/fixture.h"

namespace {

TEST(Rules, forSeveralOptionsSeeWhatIsGiven) {
    const struct {
        Texts typed;
        const char* text;
    } rows[] = {
        {{"-a"}, ""},
        {{"-a", "-a"}, ""},
        {{"-a", "--no-b"}, ""},  // switched off is not given
        {{"-a", "-b", "--no-b"}, ""},
        {{"-a", "-b"}, "'-a' and '-b' exclude each other"},
        {{"-b", "-a"}, "'-a' and '-b' exclude each other"},
        {{"-b", "-c=3"}, "'-b' and '-c' exclude each other"},
        {{}, "missing option: one of -a, -b, -c"},
        {{"--no-b"}, "missing option: one of -a, -b, -c"},
        {{"-c=x"}, "'x' is not a whole number, which '-c' takes"},  // it is not missing as well
        {{"-a", "-n"}, "'-n' needs '-d' as well"},
        {{"-a", "-n", "-d"}, ""},
        {{"-a", "--no-d", "-n"}, "'-n' needs '-d' as well"},
        {{"-a", "-d"}, ""},
        {{"-a", "-b", "-c=3"}, "'-a' and '-b' exclude each other"},
        {{"-a", "-m"}, "'-m' needs '-e' as well"},
        {{"-a", "-m", "-e=x"}, "'x' is not a whole number, which '-e' takes"},
    };
    for (const auto& row : rows) {
        host::Parser parser("tool");
        const auto a = parser.addFlag("a", "");
        const auto b = parser.addSwitch("b", "").defaultTo(true);  // defaults do not count
        const auto c = parser.add<int>("c", "").defaultTo(7);
        const auto d = parser.addSwitch("d", "");
        parser.addFlag("n", "").needs(d.key());
        parser.addFlag("m", "").needs(parser.add<int>("e", "").key());
        parser.oneOf({a.key(), b.key(), c.key()});
        EXPECT_EQ(said(parser.parse(row.typed)), row.text) << joined(row.typed);
    }
}

/// "one [rest rest] last": what each positional argument got.
template <class Declare>
std::string shares(const Texts& typed, Declare declare) {
    host::Parser parser("tool");
    const unsigned count = declare(parser);
    const host::Outcome outcome = parser.parse(typed);
    if (!outcome) return said(outcome);
    std::string all;
    for (unsigned i = 0; i < count; ++i)
        all += "[" + joined(outcome.result().values<std::string>(std::string(1, "abc"[i]))) + "]";
    return all;
}

TEST(PositionalArguments, areSharedOutFromBothEnds) {
    using P = host::Parser&;
    const auto add = [](P p, const char* name) { return p.addPositional<std::string>(name, ""); };
    const auto copy = [&add](P p) {  // cp SOURCE... DEST
        return (void)add(p, "a").atLeast(1), add(p, "b"), 2u;
    };
    const auto middle = [&add](P p) { return add(p, "a"), (void)add(p, "b").atLeast(0), add(p, "c"), 3u; };
    const auto optional = [&add](P p) {
        return (void)add(p, "a").optional(), add(p, "b"), (void)add(p, "c").defaultTo("z"), 3u;
    };
    const auto restWithDefault = [&add](P p) {
        return (void)add(p, "a").atLeast(1).defaultTo({"x", "y"}), add(p, "b"), 2u;
    };
    const auto two = [&add](P p) { return (void)add(p, "a").atLeast(2), 1u; };
    const auto lists = [&add](P p) { return (void)add(p, "a").list(','), add(p, "b"), 2u; };
    const auto all = [](auto declare, const std::vector<std::pair<Texts, const char*>>& rows) {
        for (const auto& [typed, shared] : rows)
            EXPECT_EQ(shares(typed, declare), shared) << joined(typed);
    };
    all(copy, {{{"1", "2"}, "[1][2]"},
               {{"1", "2", "3"}, "[1 2][3]"},
               {{"1"}, "missing argument: B"},
               {{}, "missing argument: A\nmissing argument: B"}});
    all(middle,
        {{{"1", "2"}, "[1][][2]"}, {{"1", "2", "3", "4"}, "[1][2 3][4]"}, {{"1"}, "missing argument: C"}});
    all(optional, {{{"1"}, "[][1][z]"},
                   {{"1", "2"}, "[1][2][z]"},
                   {{"1", "2", "3"}, "[1][2][3]"},
                   {{"1", "2", "3", "4"}, "unexpected argument '4'"}});
    all(restWithDefault, {{{"1"}, "[x y][1]"}, {{"1", "2", "3"}, "[1 2][3]"}});
    all(two, {{{"1"}, "missing argument: A (2 or more)"}, {{"1", "2", "3"}, "[1 2 3]"}});
    all(lists, {{{"1,2", "3"}, "[1 2][3]"}, {{"1,", "3"}, "'1,' has an empty item"}});
}

TEST(Choices, areShortenedToABeginningThatFitsOneAlone) {
    enum class Mode { fast, full };
    host::Parser parser("tool");
    const auto mode = parser.addPositional<Mode>("mode", "")
                          .named({{"fast", Mode::fast},
                                  {"quick", Mode::fast},
                                  {"full", Mode::full},
                                  {"fuller", Mode::full},
                                  {"f", Mode::full}});
    const auto text = parser.add<std::string>("text", "").allow("only", "onlyone").key();
    parser.add<int>("number", "").allow(10, 100);
    const struct {
        Texts typed;
        const char* text;
        Mode mode;
    } rows[] = {
        {{"fa"}, "", Mode::fast},
        {{"q"}, "", Mode::fast},
        {{"fu"}, "", Mode::full},  // two names of one value
        {{"f"}, "", Mode::full},   // in full
        {{"full"}, "", Mode::full},
        {{"F"}, "'F' is not allowed for 'MODE': fast, quick, full, fuller, f", Mode::full},
        {{""}, "'' is not allowed for 'MODE': fast, quick, full, fuller, f", Mode::full},
        {{"q", "--text=only"}, "", Mode::fast},
        {{"q", "--text=on"}, "'on' is ambiguous for '--text': only, onlyone", Mode::fast},
        {{"q", "--number=10"}, "", Mode::fast},
        {{"q", "--number=1"}, "'1' is not allowed for '--number': 10, 100", Mode::fast},  // never shortened
        {{"q", "--number=+010"}, "", Mode::fast},
    };
    for (const auto& row : rows) {
        const host::Outcome outcome = parser.parse(row.typed);
        EXPECT_EQ(said(outcome), row.text);
        if (outcome) {
            EXPECT_EQ(outcome.result()[mode.key()], row.mode) << row.typed[0];
        }
    }
    EXPECT_EQ(parser.parse({"q", "--text=onlyo"}).result()[text], "onlyone");
}

}  // namespace
