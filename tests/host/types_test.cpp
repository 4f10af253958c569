// What texts the types read, how they show values, and that no locale changes either.
#include <clocale>
#include <locale>

#include "host/fixture.h"
#include "vorn/host/byte_size.h"
#include "vorn/host/duration.h"
#include "vorn/host/path.h"

namespace {

/// The value as it is shown, or what speaks against the text.
template <class T>
std::string read(const std::string& text) {
    T value{};
    const std::string reason = host::Type<T>::read(text, value);
    return reason.empty() ? host::Type<T>::show(value) : reason;
}

using Reader = std::string (*)(const std::string&);

/// What all of the texts mean to a type.
struct Row {
    Reader reader;
    std::vector<const char*> texts;
    const char* meaning;
};

const char* const notWhole = "is not a whole number";
const char* const notNumber = "is not a number";
const char* const aboveDoubles = "is too large: at most 1.7976931348623157e+308";

const Row numbers[] = {
    // whole numbers: each type to both of its limits
    {read<signed char>, {"-128"}, "-128"},
    {read<signed char>, {"128"}, "is too large: at most 127"},
    {read<signed char>, {"-129"}, "is too small: at least -128"},
    {read<unsigned char>, {"255"}, "255"},
    {read<unsigned char>, {"256"}, "is too large: at most 255"},
    {read<unsigned char>, {"-1"}, "is too small: at least 0"},
    {read<short>, {"-32768"}, "-32768"},
    {read<unsigned short>, {"65536"}, "is too large: at most 65535"},
    {read<int>, {"2147483647"}, "2147483647"},
    {read<int>, {"2147483648"}, "is too large: at most 2147483647"},
    {read<int>, {"-2147483648"}, "-2147483648"},
    {read<unsigned>, {"4294967296"}, "is too large: at most 4294967295"},
    {read<long long>, {"-9223372036854775808"}, "-9223372036854775808"},
    {read<long long>, {"-9223372036854775809"}, "is too small: at least -9223372036854775808"},
    {read<unsigned long long>, {"18446744073709551615", "0xFFFFFFFFFFFFFFFF"}, "18446744073709551615"},
    {read<unsigned long long>,
     {"18446744073709551616", "0x10000000000000000"},
     "is too large: at most 18446744073709551615"},
    {read<int>, {"+007"}, "7"},
    {read<unsigned>, {"-0"}, "0"},
    {read<int>, {"", "-", "+-5", " 5", "5 ", "1.0", "1,000", "1e3"}, notWhole},
    // hexadecimal for unsigned 64 bits alone
    {read<unsigned long long>, {"0x1F", "0X1f", "1Fh"}, "31"},
    {read<unsigned long long>, {"12H"}, "18"},
    {read<unsigned long long>, {"0x", "h", "-0x1", "0x1h"}, notWhole},
    {read<unsigned>, {"0x1F"}, notWhole},
    {read<long long>, {"1Fh"}, notWhole},
    // doubles
    {read<double>, {"1.500"}, "1.5"},
    {read<double>, {"-.5e+1"}, "-5"},
    {read<double>, {"+5."}, "5"},
    {read<double>, {"0.1"}, "0.1"},
    {read<double>, {"", "1,5", ".", "1e", "1e5.0", "1.2.3", "inf", "nan", "0x1p3"}, notNumber},
    {read<double>, {"1.7976931348623157e308"}, "1.7976931348623157e+308"},
    {read<double>, {"1e309", "11e9223372036854775807", "1e9999999999999"}, aboveDoubles},
    {read<double>, {"-1e309", "-1e99999999999999999999"}, "is too small: at least -1.7976931348623157e+308"},
    {read<double>, {"1e-400", "1e-9999999999999", "1e-99999999999999999999", "0e999999999"}, "0"},
    // bool
    {read<bool>, {"yes", "1"}, "yes"},
    {read<bool>, {"off", "false"}, "no"},
    {read<bool>, {"Yes", "t"}, "is neither yes nor no"},
};

template <std::size_t count>
void expectMeanings(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        for (const char* text : row.texts)
            EXPECT_EQ(row.reader(text), row.meaning) << "'" << text << "'";
    }
}

TEST(Numbers, areReadAndShownTheSameUnderEveryLocale) {
    struct Odd : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale();
    for (const bool isOdd : {false, true}) {
        if (isOdd) {
            std::locale::global(std::locale(before, new Odd));
            for (const char* comma : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"})
                std::setlocale(LC_ALL, comma);  // where there is one
        }
        SCOPED_TRACE(isOdd);
        expectMeanings(numbers);
        host::Parser parser("tool");
        parser.add<int>("n", "").maximum(1000000);
        parser.add<double>("a", "").check([&](double number) {
            if (number > 1) std::locale::global(std::locale(before, new Odd));  // in the middle of a parse
            return std::string();
        });
        EXPECT_EQ(said(parser.parse({"-a=1.5", "-n=1000001", "-a=0.5"})),
                  "'1000001' is too large for '-n': at most 1000000");
    }
    std::locale::global(before);
    std::setlocale(LC_ALL, "C");
}

TEST(Numbers, ofManyDigitsAreTooLargeOrAsGoodAsNothing) {
    const std::string zeros(400, '0');
    for (const std::string& tiny : {"0." + zeros + "1", "-0." + zeros + "1", "0." + zeros + "1e+2"})
        EXPECT_EQ(read<double>(tiny), "0");
    EXPECT_EQ(read<double>("1" + zeros), aboveDoubles);
    EXPECT_EQ(read<double>("1" + zeros + "e-5"), aboveDoubles);
    EXPECT_EQ(read<double>("1" + zeros + "e-400"), "1");
    EXPECT_EQ(read<double>("-0." + zeros + "1e900"), "is too small: at least -1.7976931348623157e+308");
}

TEST(TypesOfHeadersOfTheirOwn, readUnitsAndShowTheFewest) {
    using Seconds = std::chrono::seconds;
    using Minutes = std::chrono::minutes;
    using Nanoseconds = std::chrono::nanoseconds;
    using Picoseconds = std::chrono::duration<long long, std::pico>;
    using Thirds = std::chrono::duration<long long, std::ratio<1, 3>>;
    using Short = std::chrono::duration<int, std::milli>;
    using Unsigned = std::chrono::duration<unsigned char>;
    using Fractions = std::chrono::duration<double>;
    const char* const noDuration = "is not a duration such as 90s or 1h30m";
    const char* const noSize = "is not a size such as 512, 10M or 4KiB";
    const char* const aboveSeconds = "is too large: at most 106751d";
    const char* const aboveSizes = "is too large: at most 18446744073709551615";
    const Row rows[] = {
        {read<Seconds>, {"90s"}, "1m30s"},
        {read<Seconds>, {"1h30m"}, "1h30m"},
        {read<Seconds>, {"-2d"}, "-2d"},
        {read<Seconds>, {"0", "0s", "0h"}, "0s"},
        {read<Seconds>, {"250ms"}, "is finer than 1s"},
        {read<Minutes>, {"90s"}, "is finer than 1m"},
        {read<Nanoseconds>, {"1s1ms1us1ns"}, "1s1ms1us1ns"},
        {read<Seconds>, {"106751d"}, "106751d"},
        {read<Seconds>, {"106752d", "100000d100000d", "99999999999999999999s"}, aboveSeconds},
        {read<Picoseconds>, {"107d"}, "is too large: at most 106d18h2m52s36ms854us775ns"},
        {read<Thirds>, {"106751d"}, "106751d"},
        {read<Short>, {"30d"}, "is too large: at most 24d20h31m23s647ms"},
        {read<Short>, {"-30d"}, "is too small: at least -24d20h31m23s648ms"},
        {read<Unsigned>, {"-1s"}, "is too small: at least 0s"},
        {read<Fractions>, {"3ns"}, "3ns"},
        {read<Seconds>, {"", "-", "90", "1.5h", "1h 30m", "s", "+1s"}, noDuration},
        {read<host::ByteSize>, {"512"}, "512"},
        {read<host::ByteSize>, {"1024"}, "1KiB"},
        {read<host::ByteSize>, {"10M", "10MB"}, "10M"},
        {read<host::ByteSize>, {"4KiB"}, "4KiB"},
        {read<host::ByteSize>, {"0k"}, "0"},
        {read<host::ByteSize>, {"5B"}, "5"},
        {read<host::ByteSize>, {"18446744073709551615"}, "18446744073709551615"},
        {read<host::ByteSize>, {"18446744073709551616", "16777216Ti"}, aboveSizes},
        {read<host::ByteSize>, {"", "-1", "1.5M", "M", "1Mb"}, noSize},
        {read<std::filesystem::path>, {"a b/.."}, "a b/.."},
    };
    expectMeanings(rows);
}

TEST(TypesOfHeadersOfTheirOwn, compareAsNumbersDo) {
    const host::ByteSize few{1}, many{2};
    EXPECT_TRUE(few != many && few < many && !(many < few) && !(few == many) && !(many != many));
}

/// Two numbers with a colon between.
struct Point {
    int x = 0, y = 0;
    bool operator<(const Point& other) const { return x < other.x; }
};

}  // namespace

template <>
struct vorn::host::Type<Point> {
    static std::string read(std::string_view text, Point& value) {
        if (text == "far") return "is too large: at most \x1b[1m";
        if (text == "odd") return "odd\n";
        if (text == "near") return "is too small";
        const std::size_t colon = text.find(':');
        if (colon == std::string_view::npos) return "is not a point";
        const std::string reason = Type<int>::read(text.substr(0, colon), value.x);
        return reason.empty() ? Type<int>::read(text.substr(colon + 1), value.y) : reason;
    }
    static std::string show(const Point& value) {
        return std::to_string(value.x) + ":" + std::to_string(value.y);
    }
    static const char* metavar() { return "X:Y"; }
};

namespace {

TEST(TaughtTypes, mayDoWhatTheOthersDo) {
    host::Parser parser("tool");
    const auto point = parser.add<Point>("point", "").allow(Point{1, 2}, Point{3, 4}).key();
    const auto points =
        parser.add<Point>("points", "").list(',').range({0, 0}, {9, 0}).defaultTo({Point{5, 6}}).key();
    parser.add<Point>("free", "");
    const struct {
        const char* typed;
        const char* text;
    } rows[] = {
        {"--point=+1:02", ""},
        {"--point=1:3", "'1:3' is not allowed for '--point': 1:2, 3:4"},
        {"--point=1", "'1' is not a point, which '--point' takes"},
        {"--point=far",
         "'far' is too large for '--point': at most \\x1B[1m"},  // nothing writes to the terminal
        {"--points=near", "'near' is too small for '--points': at least 0:0"},
        {"--free=near", "'near' is too small for '--free'"},
        {"--point=odd", "'odd' is no value for '--point': odd\\n"},
        {"--points=1:1,10:0", "'10:0' is too large for '--points': at most 9:0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(said(parser.parse({row.typed})), row.text);
    const host::Outcome outcome = parser.parse({"--point=3:4"});
    EXPECT_EQ(outcome.result()[point]->y, 4);
    EXPECT_EQ(outcome.result()[points].at(0).y, 6);
    EXPECT_EQ(parser.effective(outcome.result()), "# argument 1\n--point=3:4\n# the default\n--points=5:6\n");
}

}  // namespace
