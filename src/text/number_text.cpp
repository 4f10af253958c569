// A stream costs hundreds of nanoseconds to make, a number a few to read. While the global locale is the
// classic one, which is nearly always, the same characters are read here without a stream; under any other
// locale, and in the one case that is left to it below, the stream itself decides.
//
// Whoever asks first which locale is the global one has all of the standard library's locales set up: 38,000
// instructions, more than the rest of a short parse. So only those numbers ask that locales may differ on.
//
//     text           global locale    who reads it
//     "12"           any              readInteger or readDouble: digits alone are one number everywhere
//     "-12", "1.5"   classic          the same
//     "-12", "1.5"   another          the stream
//     "1e5"          any              the stream, when it is a double
#include "text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <type_traits>

namespace vorn_3_1::internal {

namespace {

// Not std::isspace, which asks the C locale of the moment: these two know the classic locale's characters alone.
bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isBlank(char character) { return character == ' ' || (character >= '\t' && character <= '\r'); }

std::string_view withoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

/// A walk over characters that ends where they do.
struct Scanner {
    const char* cursor;
    const char* end;

    char next() const { return cursor == end ? '\0' : *cursor; }
    bool skip(char character) {
        if (next() != character) return false;
        ++cursor;
        return true;
    }
    // Returns how many there were.
    std::ptrdiff_t skipDigits() {
        const char* first = cursor;
        while (isDigit(next()))
            ++cursor;
        return cursor - first;
    }
};

// The two slow ways. The number goes through a void pointer, so that the code around the stream exists once and not
// once for each type.
using Base = std::ios_base& (*)(std::ios_base&);

bool readByStream(std::string_view text, Base base, bool (*extract)(std::istream&, void*), void* value) {
    std::istringstream stream{std::string(text)};
    stream.exceptions(std::ios::badbit);  // running out of memory is no bad number
    stream >> base;
    return extract(stream, value);
}

std::string writeByStream(void (*insert)(std::ostream&, const void*), const void* value) {
    std::ostringstream stream;
    stream.exceptions(std::ios::badbit);
    insert(stream, value);
    return stream.str();
}

// The same two for a type: they know which operator of the stream to call.
template <class Number>
bool readByStream(std::string_view text, Number& value, Base base = std::dec) {
    const auto extract = [](std::istream& stream, void* target) {
        return !(stream >> *static_cast<Number*>(target)).fail();
    };
    return readByStream(text, base, extract, &value);
}

template <class Number>
std::string writeByStream(Number value) {
    const auto insert = [](std::ostream& stream, const void* source) {
        stream << *static_cast<const Number*>(source);
    };
    return writeByStream(insert, &value);
}

// The digits without their sign. What follows them is ignored.
bool readMagnitude(std::string_view text, int radix, unsigned long long& magnitude) {
    return std::from_chars(text.data(), text.data() + text.size(), magnitude, radix).ec == std::errc();
}

// The digits of a hexadecimal number, or nothing. What has neither mark is decimal, also where it has the digits: "ff" is
// no number.
//
//     "0x1F", "1Fh"    "1F"
//     "0x", "h"        "", which is no number
//     "1F", "0x1Fh"    nothing
std::optional<std::string_view> hexadecimalDigits(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
    } else if (text.ends_with('h') || text.ends_with('H')) {
        text.remove_suffix(1);
    } else {
        return std::nullopt;
    }
    const bool areDigits = text.find_first_not_of("1234567890ABCDEFabcdef") == std::string_view::npos;
    return areDigits ? std::optional(text) : std::nullopt;
}

// Reads a number of the given range as 64 bits, negative ones in two's complement. An unsigned type takes the
// magnitudes of its positive numbers and negates by wrapping around.
bool readInteger(std::string_view text, bool isSigned, unsigned long long largest, unsigned long long& bits) {
    text = withoutLeadingBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    unsigned long long magnitude = 0;
    if (!readMagnitude(text, 10, magnitude)) return false;
    if (magnitude > largest + (isSigned && negative ? 1 : 0)) return false;
    bits = negative ? 0 - magnitude : magnitude;
    return true;
}

// Finds where a stream would stop reading, and gives from_chars just those characters:
//
//     "1.5kg"    "1.5"
//     "+2."      "2."        without the plus
//     "nan"      ""          no number, as for a stream
//     "1e5"      all of it to the stream
bool readDouble(std::string_view text, double& value) {
    const std::string_view number = withoutLeadingBlanks(text);
    Scanner scanner{number.data(), number.data() + number.size()};
    const char* start = number.data();
    if (scanner.skip('+')) {
        start = scanner.cursor;  // which from_chars would not take
    } else {
        scanner.skip('-');
    }
    std::ptrdiff_t digits = scanner.skipDigits();
    if (scanner.skip('.')) digits += scanner.skipDigits();
    // On i386 the standard library's from_chars multiplies by the power of ten in the x87's registers and so
    // rounds twice; that is why the stream reads all numbers with an exponent.
    if (digits > 0 && (scanner.next() == 'e' || scanner.next() == 'E')) {
        return readByStream(text, value);
    }
    // Ends at the cursor: from_chars would take more than a stream does, "nan" and "inf".
    const auto read = std::from_chars(start, scanner.cursor, value);
    // Too large and too small look alike here, but only the former fails.
    if (read.ec == std::errc::result_out_of_range) return readByStream(text, value);
    return read.ec == std::errc();
}

// 32 characters are enough: 64 bits have at most 20 digits, and a double is written with 6.
template <class... Format>
std::string charsOf(Format... format) {
    char buffer[32];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, format...).ptr};
}

// As a stream does it that nobody has set up: 6 digits in all, an exponent only where it is shorter.
std::string charsOfDouble(double value) {
    constexpr int streamPrecision = 6;
    return charsOf(value, std::chars_format::general, streamPrecision);
}

// By name: comparing locales compares names as well, and ends the process when there is no memory for them.
bool isClassicLocale() { return std::locale().name() == "C"; }

// Groups are allowed, never asked for: digits alone are one number everywhere.
bool readsAlikeEverywhere(std::string_view text) { return std::ranges::all_of(text, isDigit); }

// One digit has no groups.
template <class Number>
bool isWrittenAlikeEverywhere(Number value) {
    return !std::is_same_v<Number, double> && value >= Number(0) && value <= Number(9);
}

}  // namespace

template <class Number>
bool readNumber(std::string_view text, Number& value) {
    if (!readsAlikeEverywhere(text) && !isClassicLocale()) return readByStream(text, value);
    if constexpr (std::is_same_v<Number, double>) {
        return readDouble(text, value);
    } else {
        using Limits = std::numeric_limits<Number>;
        // For bool, whose largest value is 1, only zero may have a minus.
        unsigned long long bits = 0;
        if (!readInteger(text, Limits::is_signed, Limits::max(), bits)) return false;
        if (std::is_same_v<Number, bool> && bits > 1) return false;
        value = static_cast<Number>(bits);
        return true;
    }
}

bool readNumberOrHexadecimal(std::string_view text, unsigned long long& value) {
    const std::optional<std::string_view> digits = hexadecimalDigits(text);
    if (!digits) return readNumber(text, value);
    return isClassicLocale() ? readMagnitude(*digits, 16, value) : readByStream(text, value, std::hex);
}

template <class Number>
std::string writeNumber(Number value) {
    if (!isWrittenAlikeEverywhere(value) && !isClassicLocale()) return writeByStream(value);
    if constexpr (std::is_same_v<Number, double>) {
        return charsOfDouble(value);
    } else {
        using Widest = std::conditional_t<std::is_signed_v<Number>, long long, unsigned long long>;
        return charsOf(static_cast<Widest>(value));
    }
}

template bool readNumber(std::string_view, bool&);
template bool readNumber(std::string_view, int&);
template bool readNumber(std::string_view, unsigned int&);
template bool readNumber(std::string_view, long long&);
template bool readNumber(std::string_view, unsigned long long&);
template bool readNumber(std::string_view, double&);

template std::string writeNumber(bool);
template std::string writeNumber(int);
template std::string writeNumber(unsigned int);
template std::string writeNumber(long long);
template std::string writeNumber(unsigned long long);
template std::string writeNumber(double);

}  // namespace vorn_3_1::internal
