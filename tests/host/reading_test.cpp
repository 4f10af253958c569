// Reading results: by keys whose type says what is there, by names, by positions, and where values come from.
#include <type_traits>

#include "host/fixture.h"

namespace {

using host::Key;
using Layer = host::Origin::Layer;

template <class Expected, class Actual>
constexpr bool reads(const Actual&) {
    return std::is_same_v<Actual, Key<Expected>>;
}

TEST(Keys, readWhatTheDeclarationPromisesInAnyOrderOfOperations) {
    host::Parser p("tool");
    EXPECT_TRUE(reads<std::optional<int>>(p.add<int>("a", "").range(1, 2).key()));
    EXPECT_TRUE(reads<int>(p.add<int>("b", "").defaultTo(1).key()));
    EXPECT_TRUE(reads<int>(p.add<int>("c", "").required().range(1, 2).key()));
    EXPECT_TRUE(reads<std::vector<int>>(p.add<int>("d", "").list(';').required().key()));
    EXPECT_TRUE(reads<std::vector<int>>(p.add<int>("e", "").required().list().key()));
    EXPECT_TRUE(reads<std::vector<int>>(p.add<int>("f", "").defaultTo(1).repeated().key()));
    EXPECT_TRUE(reads<bool>(p.addSwitch("g", "").defaultTo(true).key()));
    EXPECT_TRUE(reads<bool>(p.addFlag("i", "").key()));
    EXPECT_TRUE(reads<int>(p.addCount("j", "").key()));
    EXPECT_TRUE(reads<int>(p.addPositional<int>("k", "").key()));
    EXPECT_TRUE(reads<std::optional<int>>(p.addPositional<int>("l", "").optional().key()));
    EXPECT_TRUE(reads<int>(p.addPositional<int>("m", "").optional().defaultTo(3).key()));
    EXPECT_TRUE(reads<int>(p.addPositional<int>("n", "").defaultTo(3).optional().key()));
    EXPECT_TRUE(reads<std::vector<int>>(p.addPositional<int>("o", "").atLeast(2).key()));
}

/// A compiler-like tool, after a parse of the line below.
struct Reading : testing::Test {
    host::Parser parser{"build"};
    Key<std::vector<std::string>> define = parser.add<std::string>("define,D,macro", "").repeated().key();
    Key<std::vector<int>> list = parser.add<int>("list", "").list(',').key();
    Key<int> level = parser.add<int>("level", "").defaultTo(1).key();
    Key<std::optional<int>> optional = parser.add<int>("optional", "").key();
    Key<std::vector<int>> listWithDefault = parser.add<int>("other", "").list(',').defaultTo({7, 8}).key();
    Key<bool> toggle = parser.addSwitch("toggle", "").key();
    Key<bool> flag = parser.addFlag("flag", "").key();
    Key<int> count = parser.addCount("count", "").key();
    Key<std::vector<std::string>> sources = parser.addPositional<std::string>("source", "").atLeast(0).key();
    host::Result result =
        std::move(parser
                      .parse({"-D=1", "--list=1,2", "a.c", "--level=2", "--no-tog", "-D=2", "b.c",
                              "--level=3", "--count", "--flag", "--count", "--list=3", "--D=3"})
                      .result());

    std::string defined(host::Range range) const { return joined(result.values(define, range)); }
};

TEST_F(Reading, byKeys) {
    EXPECT_EQ(result[define], (Texts{"1", "2", "3"}));
    EXPECT_EQ(result[list], (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(result[level], 3);  // the last one
    EXPECT_EQ(result[optional], std::nullopt);
    EXPECT_EQ(result[listWithDefault], (std::vector<int>{7, 8}));
    EXPECT_EQ(result[toggle], false);
    EXPECT_EQ(result[flag], true);
    EXPECT_EQ(result[count], 2);
    EXPECT_EQ(result[sources], (Texts{"a.c", "b.c"}));
    EXPECT_EQ(&result[sources], &result[sources]);  // a reference, no copy
    const struct {
        host::AnyKey key;
        bool isGiven;
        Layer layer;
        int line;
    } rows[] = {
        {define, true, Layer::commandLine, 13}, {level, true, Layer::commandLine, 8},
        {count, true, Layer::commandLine, 11},  {flag, true, Layer::commandLine, 10},
        {toggle, false, Layer::commandLine, 5},  // switched off
        {optional, false, Layer::none, 0},      {listWithDefault, false, Layer::defaulted, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(result.isGiven(row.key), row.isGiven) << row.key.index;
        EXPECT_EQ(result.origin(row.key).layer, row.layer) << row.key.index;
        EXPECT_EQ(result.origin(row.key).line, row.line) << row.key.index;
    }
}

TEST_F(Reading, byNames) {
    EXPECT_EQ(result.value<int>("level"), 3);
    EXPECT_EQ(result.value<std::string>("macro"), "3");  // a synonym; the last value
    EXPECT_EQ(result.value<int>("optional"), std::nullopt);
    EXPECT_EQ(result.values<int>("other"), (std::vector<int>{7, 8}));
    EXPECT_EQ(result.values<std::string>("D", host::Range{0, 0}), Texts{});
    EXPECT_EQ(result.given<int>("list").size(), 3u);
    EXPECT_TRUE(result.isGiven("count"));
    EXPECT_EQ(result.origin("level").text(), "argument 8");
    const struct {
        const char* name;
        const char* thrown;
    } rows[] = {
        {"lev", "vorn: nothing is declared by the name 'lev'"},
        {"", "vorn: nothing is declared by the name ''"},
        {nullptr, "vorn: nothing is declared by the name ''"},
        {"no-toggle", "vorn: nothing is declared by the name 'no-toggle'"},
        {"--level", "vorn: nothing is declared by the name '--level' (names have no hyphens here)"},
        {"define", "vorn: 'define' is of another type than it is read as"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(thrownBy<std::logic_error>([&] { (void)result.value<int>(row.name); }), row.thrown);
}

TEST_F(Reading, byPositionsFromTheLowEndToBelowTheHighOne) {
    const std::vector<host::Given<std::string>> files = result.given(sources);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[1].value, "b.c");
    EXPECT_EQ(files[1].origin.text(), "argument 7");
    const int first = files[0].position;
    const int second = files[1].position;
    EXPECT_LT(first, second);
    EXPECT_EQ(defined(host::before(first)), "1");
    EXPECT_EQ(defined(host::before(second)), "1 2");
    EXPECT_EQ(defined(host::between(first, second)), "2");
    EXPECT_EQ(defined(host::from(second)), "3");
    EXPECT_EQ(defined(host::between(second, first)), "");
    const int ofTwo = result.given(define)[1].position;
    EXPECT_EQ(defined(host::from(ofTwo)), "2 3");  // the low end is in
    EXPECT_EQ(defined(host::before(ofTwo)), "1");  // the high one is not
    EXPECT_EQ(defined(host::between(ofTwo, ofTwo)), "");
    EXPECT_EQ(defined({INT_MIN, INT_MAX}), "1 2 3");
    EXPECT_EQ(result.values(level, host::before(second)), std::vector<int>{2});  // in force there
    EXPECT_EQ(result.values(count, host::from(second)), (std::vector<int>{1, 2}));
    EXPECT_EQ(result.values(toggle, host::before(second)), std::vector<bool>{false});
    const auto items = result.given(list);
    EXPECT_EQ(items[0].position, items[1].position);  // of one text
    EXPECT_LT(items[1].position, items[2].position);
}

TEST_F(Reading, defaultsStandBeforeTheFirstArgument) {
    const int first = result.given(define)[0].position;
    EXPECT_EQ(result.values(listWithDefault, host::before(first)), (std::vector<int>{7, 8}));
    EXPECT_EQ(result.values(listWithDefault, host::from(first)), std::vector<int>{});
    EXPECT_EQ(result.given(listWithDefault).size(), 0u);  // it was not given
}

TEST_F(Reading, worksWithoutTheParserAndAfterMoves) {
    host::Result other;
    {
        host::Parser moved = std::move(parser);
        parser = host::Parser("another");
        other = std::move(moved.parse({"-D", "x"}).result());
        host::Parser assigned("third");
        assigned = std::move(moved);
        EXPECT_EQ(assigned.parse({"--level=5"}).result()[level], 5);
    }
    host::Result moved = std::move(other);
    EXPECT_EQ(moved[define], Texts{"x"});
    EXPECT_EQ(moved.values<int>("other"), (std::vector<int>{7, 8}));
    EXPECT_EQ(result[sources].size(), 2u);  // an earlier one is not touched
}

TEST(Results, thatHoldNothingCanBeAskedAndSaySo) {
    host::Parser parser("tool");
    host::Parser other("other");
    const auto value = parser.add<int>("value", "").required().key();
    const auto perhaps = parser.add<int>("perhaps", "").key();
    const auto file = parser.addPositional<std::string>("file", "").key();
    const auto foreign = other.add<int>("value", "").key();
    const host::Outcome failed = parser.parse({"--value=x"});
    const host::Result empty;
    const std::string nothing =
        "vorn: the result holds nothing for this key: it is of a command that was not chosen, of another "
        "parser, or the result is empty";
    const std::string noValue =
        "vorn: there is no value to read; the parse has failed, or only a rule makes it sure";
    const auto reading = [](const host::Result& result, auto key) {
        return thrownBy<std::logic_error>([&] { (void)result[key]; });
    };
    EXPECT_EQ(reading(failed.result(), value), noValue);
    EXPECT_EQ(reading(failed.result(), file), noValue);
    EXPECT_EQ(reading(failed.result(), perhaps), "");
    EXPECT_EQ(reading(failed.result(), foreign), nothing);
    EXPECT_EQ(reading(failed.result(), Key<int>()), nothing);
    EXPECT_EQ(reading(empty, perhaps), nothing);
    for (const host::Result* result : {&empty, &failed.result()}) {
        EXPECT_THROW((void)result->value(foreign), std::logic_error);
        EXPECT_THROW((void)result->values(foreign, host::before(3)), std::logic_error);
        EXPECT_THROW((void)result->given(foreign), std::logic_error);
        EXPECT_FALSE(result->isGiven(foreign));
        EXPECT_EQ(result->origin(foreign).layer, Layer::none);
        EXPECT_EQ(result->arguments(), Texts{});
        EXPECT_EQ(result->command(), nullptr);
    }
    EXPECT_THROW((void)empty.value<int>("anything"), std::logic_error);
    EXPECT_FALSE(empty.isGiven("anything"));
}

TEST(Results, ofAListWithAnEmptyDefaultHoldNoLastValue) {
    host::Parser parser("tool");
    (void)parser.add<int>("list", "").list(',').defaultTo(std::initializer_list<int>{});
    EXPECT_EQ(parser.parse({}).result().value<int>("list"), std::nullopt);
}

TEST(Results, showWhatWasFoundDespiteMistakes) {
    host::Parser parser("tool");
    const auto list = parser.add<int>("list", "").list(',').key();
    const auto files = parser.addPositional<std::string>("file", "").atLeast(1).key();
    const host::Outcome outcome = parser.parse({"--list=1,2", "a", "--bogus", "--list=3,x", "--list=4"});
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.result()[list], (std::vector<int>{1, 2, 4}));  // a text counts as a whole
    EXPECT_EQ(outcome.result()[files], Texts{"a"});
}

/// A value that counts its copies.
struct Counted {
    int value = 0;
    Counted() = default;
    Counted(const Counted& other) : value(other.value) { ++copies; }
    Counted(Counted&& other) noexcept = default;
    Counted& operator=(const Counted& other) = default;
    Counted& operator=(Counted&&) noexcept = default;
    static int copies;
};
int Counted::copies = 0;

}  // namespace

template <>
struct vorn::host::Type<Counted> {
    static std::string read(std::string_view text, Counted& value) {
        return Type<int>::read(text, value.value);
    }
    static std::string show(const Counted& value) { return std::to_string(value.value); }
    static const char* metavar() { return "N"; }
};

namespace {

TEST(Stretches, costWhatTheyHold) {
    host::Parser parser("tool");
    const auto option = parser.add<Counted>("option", "").repeated().key();
    const auto inputs = parser.addPositional<std::string>("input", "").atLeast(0).key();
    Texts line;
    for (int i = 0; i < 16000; ++i) {
        line.push_back("--option=" + std::to_string(i));
        line.push_back("input");
    }
    const host::Outcome outcome = parser.parse(line);
    const host::Result& result = outcome.result();
    const auto given = result.given(inputs);
    ASSERT_EQ(given.size(), 16000u);
    Counted::copies = 0;
    for (std::size_t i = 1; i < given.size(); ++i) {
        const auto stretch = result.values(option, host::between(given[i - 1].position, given[i].position));
        ASSERT_EQ(stretch.size(), 1u);
        EXPECT_EQ(stretch[0].value, static_cast<int>(i));
    }
    EXPECT_EQ(Counted::copies, 15999);
}

}  // namespace
