// What cannot be registered, and what the compiler refuses.
#include "fixture.h"

namespace vorn_3_1::host_tests {

using host::NoValue;

// Whatever the library would refuse silently is refused here, and what no user could type.
TEST(HostRegistration, refusalsNameTheOptionAndTheReason) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "it has no name"},
        {"a,b,c,d", "it has more than three names"},
        {"a,b,cde", "its third name 'cde' is longer than two characters"},
        {"a,level", "'level' is taken by option 'level'"},
        {"effort", "'effort' is taken by option 'level'"},
        {"no-verbose", "'no-verbose' is taken by option 'verbose'"},
        {"no-loud", "'no-loud' is taken by option 'verbose'"},
        {"a,b,a", "'a' is taken by option 'a'"},
        {"a,", "its name '' is empty"},
        {",a", "its name '' is empty"},
        {"a,,b", "its name ',b' holds '=' or ','"},  // the library, too, takes the second comma for text
        {"a=1", "its name 'a=1' holds '=' or ','"},
        {"a, b", "its name ' b' holds a blank"},
        {"--a", "its name '--a' begins with '-', which only users type"},
    };
    for (const auto& row : cases) {
        host::Parser parser;
        parser.add<int>("level,l", "").synonym("effort");
        parser.add<bool>("verbose", "").synonym("loud");
        EXPECT_EQ(complaintOf<host::RegistrationError>([&] { parser.add<int>(row.first, ""); }),
                  "vorn: option '" + std::string(row.first) + "' cannot be registered: " + row.second);
        // A refusal leaves nothing behind, and the library agrees with what was accepted.
        parser.add<int>("a,b,cd", "");
        EXPECT_EQ(parse(parser, "--cd=1 --effort=2 --no-loud").text, "");
    }
}

TEST(HostRegistration, switchesAndSynonymsClashInBothDirections) {
    host::Parser parser;
    parser.add<int>("no-colour", "");
    // The library accepts these two, and then every use is ambiguous.
    EXPECT_THROW(parser.add<bool>("colour", ""), host::RegistrationError);
    EXPECT_THROW(parser.add<int>("other", "").synonym("no-colour"), host::RegistrationError);
    EXPECT_THROW(parser.add<bool>("switch", "").synonym("no-switch"), host::RegistrationError);
    EXPECT_THROW(parser.add<bool>("no-cache", ""), host::RegistrationError);  // always off for the library
    EXPECT_NO_THROW(parser.add<int>("colour", ""));

    parser.add<Text>("input", "").positional();
    EXPECT_THROW(parser.add<Text>("second", "").positional(), host::RegistrationError);
}

TEST(HostRegistration, aDefaultIsAnAllowedValueWhicheverComesFirst) {
    host::Parser parser;
    parser.add<int>("a", "").defaultTo(2).allow(1).allow(2);
    parser.add<Text>("b", "").allow("x", "y").defaultTo("y");
    EXPECT_NO_THROW((void)parser.parseText(""));
    parser.add<int>("c", "").defaultTo(3).allow(1, 2);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(complaintOf<host::RegistrationError>([&] { (void)parser.parseText(""); }),
                  "vorn: option 'c' cannot be registered: its default is not among the allowed values");
    }
}

TEST(HostRegistration, onlyValuesOfTheOptionsTypeCompile) {
    using host::detail::fits;
    EXPECT_TRUE((fits<int, int>() && fits<bool, bool>() && fits<double, double>()));
    EXPECT_TRUE((fits<Text, const char*>() && fits<Text, std::string>() && !fits<Text, int>()));
    static_assert(!fits<int, bool>() && !fits<int, double>() && !fits<int, const char*>() &&
                  !fits<int, char>());
    static_assert(!fits<int, unsigned>() && !fits<unsigned, int>() && !fits<int, long long>());
    static_assert(fits<long long, int>() && fits<long long, unsigned>() && !fits<unsigned long long, int>());
    static_assert(!fits<double, int>() && !fits<bool, int>() && !fits<bool, const char*>());
    // The same kind on both widths, whatever the type behind the name.
    using namespace tamsu2;
    using host::detail::kindOf;
    const std::vector kinds = {kindOf<bool>(),         kindOf<int>(),           kindOf<unsigned>(),
                               kindOf<std::int64_t>(), kindOf<std::uint64_t>(), kindOf<double>(),
                               kindOf<Text>(),         kindOf<NoValue>()};
    EXPECT_EQ(kinds, (std::vector{qel_bool, qel_int, qel_uint, qel_int64, qel_uint64, qel_double, qel_string,
                                  qel_empty}));
    using host::detail::givesVerdict;
    EXPECT_TRUE((givesVerdict<bool (*)(int), int>() && givesVerdict<const char* (*)(int), int>()));
    EXPECT_FALSE((givesVerdict<void (*)(int), int>() || givesVerdict<bool (*)(Text), int>()));
    EXPECT_FALSE((givesVerdict<int (*)(int), int>()));  // 0 would read as a refusal
    static_assert(!std::is_copy_constructible_v<host::Option<int>>);
    static_assert(std::is_nothrow_move_constructible_v<host::Result>);
}

TEST(HostRegistration, everyTypeReadsWhatWasTypedOrItsDefault) {
    host::Parser parser;
    parser.add<bool>("bool", "").defaultTo(true);
    parser.add<int>("int", "").defaultTo(-1);
    parser.add<unsigned>("unsigned", "").defaultTo(4000000000u);
    parser.add<std::int64_t>("signed", "").defaultTo(-5000000000ll);
    parser.add<std::uint64_t>("hex", "").defaultTo(18446744073709551615ull);
    parser.add<double>("double", "").defaultTo(0.5);
    parser.add<Text>("text", "").allow("fast", std::string("full")).defaultTo("full");
    parser.add<NoValue>("nothing", "");
    const auto read = [&parser](const std::string& line) {
        const host::Outcome outcome = parse(parser, line);
        std::ostringstream all;
        const host::Result& result = outcome.result;
        all << outcome.text << *result.value<bool>("bool") << ' ' << *result.value<int>("int") << ' '
            << *result.value<unsigned>("unsigned") << ' ' << *result.value<std::int64_t>("signed") << ' '
            << *result.value<std::uint64_t>("hex") << ' ' << *result.value<double>("double") << ' '
            << *result.value<Text>("text") << ' ' << result.isExplicit("nothing");
        return all.str();
    };
    EXPECT_EQ(read(""), "1 -1 4000000000 -5000000000 18446744073709551615 0.5 full 0");
    EXPECT_EQ(read("--no-b -i 7 -u 8 -s=-9 -h=0x1F -d=1e3 -t=fa -n"), "0 7 8 -9 31 1000 fast 1");
}

}  // namespace vorn_3_1::host_tests
