// Numbers with units: durations and sizes in bytes.
//
//     typed      value                  shown
//     90s        90,000,000,000 ns      1m30s
//     1h30m      5,400,000,000,000 ns   1h30m
//     10M        10,000,000             10M
//     4KiB       4096                   4KiB
#include <charconv>
#include <climits>
#include <system_error>

#include "text_parts.h"
#include "vorn/host/byte_size.h"
#include "vorn/host/duration.h"

namespace vorn_3_1::host {

namespace {

using detail::isDigit;

struct Unit {
    std::string_view name;
    unsigned long long size;
};

/// The largest first.
constexpr Unit timeUnits[] = {
    {"d", 86400000000000}, {"h", 3600000000000}, {"m", 60000000000}, {"s", 1000000000},
    {"ms", 1000000},       {"us", 1000},         {"ns", 1}};

constexpr Unit byteUnits[] = {{"Ti", 1ULL << 40}, {"T", 1000000000000}, {"Gi", 1ULL << 30},
                              {"G", 1000000000},  {"Mi", 1ULL << 20},   {"M", 1000000},
                              {"Ki", 1ULL << 10}, {"k", 1000},          {"K", 1000}};

std::string_view cutWhile(std::string_view& text, bool digits) {
    std::size_t size = 0;
    while (size < text.size() && isDigit(text[size]) == digits)
        ++size;
    const std::string_view cut = text.substr(0, size);
    text.remove_prefix(size);
    return cut;
}

/// 0 if there is no such unit.
template <std::size_t count>
unsigned long long sizeOf(const Unit (&units)[count], std::string_view name) {
    for (const Unit& unit : units) {
        if (unit.name == name) return unit.size;
    }
    return 0;
}

enum class Number { fits, tooLarge, none };

Number readNumber(std::string_view digits, unsigned long long unit, unsigned long long& value) {
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || unit == 0) return Number::none;
    if (end.ec == std::errc::result_out_of_range || value > ULLONG_MAX / unit) return Number::tooLarge;
    value *= unit;
    return Number::fits;
}

}  // namespace

namespace detail {

std::string readDuration(std::string_view text, long long& nanoseconds) {
    constexpr char none[] = "is not a duration such as 90s or 1h30m";
    constexpr char tooLarge[] = "is too large: at most 106751d";
    const bool isNegative = text.substr(0, 1) == "-";
    if (isNegative) text.remove_prefix(1);
    if (text.empty()) return none;
    unsigned long long sum = 0;
    while (!text.empty()) {
        const std::string_view digits = cutWhile(text, true);
        const std::string_view unit = cutWhile(text, false);
        unsigned long long part = 0;
        const bool isZero = digits == "0" && unit.empty();
        const Number read = readNumber(digits, isZero ? 1 : sizeOf(timeUnits, unit), part);
        if (read == Number::none) return none;
        constexpr unsigned long long most = LLONG_MAX;
        if (read == Number::tooLarge || part > most || sum > most - part) return tooLarge;
        sum += part;
    }
    nanoseconds = isNegative ? -static_cast<long long>(sum) : static_cast<long long>(sum);
    return {};
}

std::string showDuration(long long nanoseconds) {
    std::string text = nanoseconds < 0 ? "-" : "";
    unsigned long long left = nanoseconds < 0 ? 0 - static_cast<unsigned long long>(nanoseconds)
                                              : static_cast<unsigned long long>(nanoseconds);
    if (left == 0) return "0s";
    for (const Unit& unit : timeUnits) {
        if (left < unit.size) continue;
        text.append(std::to_string(left / unit.size)).append(unit.name);
        left %= unit.size;
    }
    return text;
}

}  // namespace detail

std::string Type<ByteSize>::read(std::string_view text, ByteSize& value) {
    const std::string_view digits = cutWhile(text, true);
    if (!text.empty() && text.back() == 'B') text.remove_suffix(1);
    unsigned long long bytes = 0;
    const Number read = readNumber(digits, text.empty() ? 1 : sizeOf(byteUnits, text), bytes);
    if (read == Number::none) return "is not a size such as 512, 10M or 4KiB";
    if (read == Number::tooLarge) return "is too large: at most 18446744073709551615";
    value.bytes = bytes;
    return {};
}

std::string Type<ByteSize>::show(const ByteSize& value) {
    for (const Unit& unit : byteUnits) {
        if (value.bytes != 0 && value.bytes % unit.size == 0) {
            const std::string text = std::to_string(value.bytes / unit.size).append(unit.name);
            return unit.name.size() == 2 ? text + "B" : text;
        }
    }
    return std::to_string(value.bytes);
}

}  // namespace vorn_3_1::host
