// What a result answers.
#include "fixture.h"

namespace vorn_3_1::host_tests {

class HostReading : public testing::Test {
protected:
    HostReading() {
        parser.add<Text>("set,s", "");
        parser.add<int>("level", "").defaultTo(2).synonym("effort");
        parser.add<Text>("exclude,x", "").list(',');
        parser.add<Text>("path", "").positional();
        parser.add<bool>("verbose", "");
        parser.add<host::NoValue>("mark", "");
    }

    host::Parser parser{host::Flags::none};
};

TEST_F(HostReading, whatWasGivenIsDeliveredInTheOrderOfTheCommandLine) {
    const host::Outcome outcome =
        parse(parser, "p -x=a,b --mark -v '' --eff=3 q,r --mark -x=c '' -- --mark z");
    EXPECT_EQ(outcome.text, "");
    const std::vector<host::Given> all = outcome.result.given();
    EXPECT_EQ(listOf(all),
              "path=p exclude=a exclude=b mark verbose=1 path level=3 path=q,r mark exclude=c path ");
    EXPECT_EQ(all[6].as<int>(), 3);
    EXPECT_EQ(all[7].as<Text>(), "q,r");
    EXPECT_THROW(all[6].as<unsigned>(), std::logic_error);
    EXPECT_THROW(all[3].as<bool>(), std::logic_error);
    EXPECT_EQ(listOf(outcome.result.given(host::between(all[1].position, all[4].position))),
              "exclude=a exclude=b mark ");

    EXPECT_EQ(joined(outcome.result.arguments()), "--mark z ");
    EXPECT_EQ(joined(outcome.result.values<Text>("path")), "p q,r ");  // the empty ones have no value
    EXPECT_EQ(outcome.result.occurrences("path").size(), 4u);
    EXPECT_EQ(outcome.result.value<Text>("x"), "c");
}

TEST_F(HostReading, positionsLimitWhatIsRead) {
    const host::Outcome outcome = parse(parser, "-x=0 a -s=one -x=1,2 b --level=5 c -s=two -x=3 -s=three");
    const host::Result& result = outcome.result;
    const std::vector<int> cuts = result.occurrences("set");
    ASSERT_EQ(cuts.size(), 3u);
    EXPECT_EQ(joined(result.values<Text>("exclude", host::before(cuts[0]))), "0 ");
    EXPECT_EQ(joined(result.values<Text>("exclude", host::between(cuts[0], cuts[1]))), "1 2 ");
    EXPECT_EQ(joined(result.values<Text>("path", host::between(cuts[0], cuts[1]))), "b c ");
    EXPECT_EQ(joined(result.values<Text>("exclude", host::from(cuts[2]))), "");
    EXPECT_EQ(result.occurrences("set", host::between(cuts[1], cuts[2])), std::vector<int>{cuts[1]});

    // From a list item on, and up to one: half-open, and not by the occurrence that holds it.
    const int item = result.given()[4].position;
    EXPECT_EQ(joined(result.values<Text>("exclude", host::from(item))), "2 3 ");
    EXPECT_EQ(joined(result.values<Text>("exclude", host::before(item))), "0 1 ");

    // The default stands before the first argument, and is not explicit.
    EXPECT_EQ(joined(result.values<int>("level", host::before(cuts[0]))), "2 ");
    EXPECT_EQ(result.value<int>("level", host::before(cuts[0])), 2);
    EXPECT_EQ(result.value<int>("level", host::before(cuts[1])), 5);
    EXPECT_EQ(result.value<int>("level", host::from(cuts[1])), std::nullopt);
    EXPECT_FALSE(result.isExplicit("level", host::before(cuts[0])));
    EXPECT_TRUE(result.isExplicit("effort", host::before(cuts[1])));
}

TEST_F(HostReading, defaultsAndEmptyArgumentsAreNotGivenValues) {
    const host::Outcome outcome = parse(parser, "''");
    EXPECT_FALSE(outcome.result.isExplicit("level"));
    EXPECT_EQ(outcome.result.value<int>("level", host::from(1)), std::nullopt);
    EXPECT_EQ(outcome.result.value<Text>("path"), std::nullopt);
    EXPECT_EQ(listOf(outcome.result.given()), "path ");
}

template <class T>
void expectMisread(const host::Result& result, const std::string& name, const std::string& types) {
    EXPECT_EQ(complaintOf<std::logic_error>([&] { result.values<T>(name); }),
              "vorn: option '" + name + "' is of type " + types);
}

TEST_F(HostReading, wrongNamesAndTypesAreProgrammingErrors) {
    const host::Result result = std::move(parse(parser, "--no-v").result);
    for (const char* name : {"lev", "no-verbose", "", "path2"}) {
        EXPECT_THROW(result.isExplicit(name), std::logic_error) << name;
    }
    EXPECT_EQ(complaintOf<std::logic_error>([&] { result.isExplicit("--set"); }),
              "vorn: no option is named '--set' (names are given without their hyphens)");
    expectMisread<double>(result, "effort", "int and is read as double");
    expectMisread<std::uint64_t>(result, "verbose", "bool and is read as std::uint64_t");
    expectMisread<Text>(result, "mark", "NoValue and is read as std::string_view");
    expectMisread<std::int64_t>(result, "set", "std::string_view and is read as std::int64_t");
    expectMisread<unsigned>(result, "level", "int and is read as unsigned");
    EXPECT_EQ(result.value<bool>("verbose"), false);
}

TEST_F(HostReading, resultsOutliveTheirParserAndAccumulate) {
    host::Result kept;
    std::vector<host::Given> all;
    {
        host::Parser moved = std::move(parser);
        host::Outcome settings = moved.parseText("# settings\n--level=1\n  a b\n");
        EXPECT_EQ(settings.code, 0);
        kept = std::move(parse(moved, "--level=3 c", std::move(settings.result)).result);
        all = kept.given();
        for (int i = 0; i < 100; ++i)
            moved.add<int>(("late" + std::to_string(i)).c_str(), "");
    }
    EXPECT_EQ(listOf(all), "level=1 path=a b level=3 path=c ");
    EXPECT_EQ(kept.value<int>("level"), 3);
}

}  // namespace vorn_3_1::host_tests
