// Numbers against the streams whose rules they follow.
#include "text/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <random>

#include "support/plain_rules.h"

namespace vorn_3_1::internal {

namespace {

template <class Number>
void expectReadsAsStream(const std::string& text,
                         bool (*read)(std::string_view, Number&) = readNumber<Number>,
                         bool isHexadecimal = false) {
    const auto expected = vorn_tests::readByStream<Number>(text, isHexadecimal);
    Number number{};
    ASSERT_EQ(read(text, number), expected.has_value()) << "'" << text << "' " << typeid(Number).name();
    if (!expected) return;
    ASSERT_EQ(std::memcmp(&number, &*expected, sizeof number), 0)
        << "'" << text << "' " << number;  // -0 is not 0
}

void expectAllReadAsStream(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        expectReadsAsStream<bool>(text);
        expectReadsAsStream<int>(text);
        expectReadsAsStream<unsigned int>(text);
        expectReadsAsStream<long long>(text);
        expectReadsAsStream<unsigned long long>(text);
        expectReadsAsStream<unsigned long long>(text, readNumberOrHexadecimal,
                                                vorn_tests::isMarkedHexadecimal(text));
        expectReadsAsStream<double>(text);
    }
}

template <class... Numbers>
void expectWrittenAsStream(Numbers... numbers) {
    const auto compare = [](auto number) {
        ASSERT_EQ(writeNumber(number), vorn_tests::writtenByStream(number));
    };
    (compare(numbers), ...);
}

void expectAllWrittenAsStream(unsigned count) {
    std::mt19937_64 random(1);
    for (unsigned i = 0; i < count; ++i) {
        const std::uint64_t wide = random() >> (i % 64);  // of every length
        expectWrittenAsStream(i % 2 == 0, static_cast<int>(wide), static_cast<unsigned>(wide));
        expectWrittenAsStream(static_cast<long long>(i % 2 == 0 ? wide : ~wide),
                              static_cast<unsigned long long>(wide));
        // Any double; then those around the turn to scientific notation and the rounding of the sixth digit.
        expectWrittenAsStream(std::bit_cast<double>(random()),
                              static_cast<double>(wide % 20000001) * (i % 2 == 0 ? 0.5 : 1e-7));
    }
    using Double = std::numeric_limits<double>;
    expectWrittenAsStream(0.0, -0.0, Double::infinity(), -Double::quiet_NaN(), Double::max(),
                          Double::denorm_min(), 999999.5);
}

const std::vector<std::string> extremes = {
    // Both sides of every limit.
    "2147483647", "2147483648", "-2147483648", "-2147483649", "4294967295", "4294967296", "-4294967295",
    "-4294967296", "9223372036854775807", "9223372036854775808", "-9223372036854775808",
    "-9223372036854775809", "18446744073709551615", "18446744073709551616", "-18446744073709551615",
    "-18446744073709551616", "ffffffff", "100000000", "0xFFFFFFFFFFFFFFFF", "0x10000000000000000",
    "00000000000000000000000000000000000000012", "99999999999999999999999999999999999999999x",
    // Floating: too large, too small, halfway between two; spelled-out values, which no stream takes; and what
    // is wrong when it is rounded twice.
    "1.7976931348623157e308", "1e309", "-1e309", "1e-320", "4.9e-324", "1e-400", "-1e-400", "1e99999999999",
    "1e-99999999999", "0e999999", "9007199254740993", "inf", "-inf", "nan", "0x1p3", "1.5e3x", "1.5E+3",
    "1092075e19", "575225175428342e21", "7117261185143267e5", "393452505485659e7", "123456789.123456789",
    // Blanks, bytes that are none, and what looks like a number to somebody else.
    "\t\n\v\f\r 7", "  ", " - 5", "5 6",
    "\xa0"
    "5",
    "5\xff", "true", "1Ah", "0X1f", "0xg", "-0x1F", "+0x1F"};

}  // namespace

TEST(NumberText, readsAndWritesAsAStreamDoes) {
    expectAllReadAsStream(vorn_tests::allTexts("019+-.ex", 5));
    expectAllReadAsStream(vorn_tests::allTexts("01FgxXhH", 4));
    expectAllReadAsStream(extremes);
    expectAllReadAsStream({std::string(400, '9'), "0." + std::string(400, '0') + "1"});
    expectAllWrittenAsStream(20000);
}

TEST(NumberText, asksTheGlobalLocaleOfTheMoment) {
    const std::locale before =
        std::locale::global({std::locale::classic(), new vorn_tests::CommaPunctuation});
    expectAllReadAsStream(vorn_tests::allTexts("01-.,e", 4));
    expectAllReadAsStream(vorn_tests::allTexts("12.,xh", 4));
    expectAllReadAsStream(extremes);
    expectAllWrittenAsStream(500);
    EXPECT_EQ(writeNumber(12345.5), "1.23.45,5");
    std::locale::global(before);
    EXPECT_EQ(writeNumber(12345.5), "12345.5");
}

}  // namespace vorn_3_1::internal
