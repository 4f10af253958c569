// Reading and showing the types that the companion knows. One rule under every locale: the classic digits and point.
//
//     read    "300" as signed char    "is too large: at most 127"
//             "5x"  as int            "is not a whole number"
//
// These are parts of sentences; value_reader.cpp puts value and option around them, and goes by how they begin: "is ",
// "is too large" or "is too small".
#include "vorn/host/type.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <limits>
#include <system_error>

#include "text_parts.h"

namespace vorn_3_1::host::detail {

Values::~Values() = default;
Check::~Check() = default;
Offer::~Offer() = default;

namespace {

std::string_view withoutSign(std::string_view text) {
    const bool isSigned = !text.empty() && (text.front() == '+' || text.front() == '-');
    return text.substr(isSigned ? 1 : 0);
}

/// std::from_chars knows no '+'.
std::string_view withoutPlus(std::string_view text) {
    return text.substr(!text.empty() && text[0] == '+' ? 1 : 0);
}

/// 0x1F and 1Fh, which the library reads for unsigned 64 bits. The digits, or nothing.
std::string_view hexadecimalDigits(std::string_view text) {
    if (text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X") {
        text.remove_prefix(2);
    } else if (!text.empty() && (text.back() == 'h' || text.back() == 'H')) {
        text.remove_suffix(1);
    } else {
        return {};
    }
    const bool areDigits = text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
    return areDigits ? text : std::string_view();
}

/// Reads with 64 bits, whatever the type: one body for all of them.
template <class Wide>
std::string readWide(std::string_view text, Wide low, Wide high, Wide& value) {
    const std::string_view digits = withoutSign(text);
    const bool isNegative = text.substr(0, 1) == "-";
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit)) return "is not a whole number";
    const bool isZero = digits.find_first_not_of('0') == std::string_view::npos;
    const std::string_view number = isZero ? "0" : withoutPlus(text);
    const auto end = std::from_chars(number.data(), number.data() + number.size(), value);
    const bool isRead = end.ec == std::errc();
    if (isRead && value >= low && value <= high) return {};
    return isNegative ? "is too small: at least " + std::to_string(low)
                      : "is too large: at most " + std::to_string(high);
}

std::string readHexadecimal(std::string_view digits, unsigned long long& value) {
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return end.ec == std::errc() ? std::string() : "is too large: at most " + std::to_string(ULLONG_MAX);
}

template <class T>
std::string readValue(std::string_view text, T& value) {
    using Wide = std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>;
    Wide wide = 0;
    const std::string_view hexadecimal = hexadecimalDigits(text);
    const bool isHexadecimal = std::is_unsigned_v<T> && sizeof(T) == 8 && !hexadecimal.empty();
    std::string reason;
    if constexpr (std::is_unsigned_v<T> && sizeof(T) == 8) {
        if (isHexadecimal) reason = readHexadecimal(hexadecimal, wide);
    }
    if (!isHexadecimal) {
        reason = readWide<Wide>(text, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), wide);
    }
    if (reason.empty()) value = static_cast<T>(wide);
    return reason;
}

template <class T>
std::string showValue(const T& value) {
    using Wide = std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>;
    return std::to_string(static_cast<Wide>(value));
}

std::string showValue(const bool& value) { return value ? "yes" : "no"; }
std::string showValue(const std::string& value) { return value; }

std::string showValue(const double& value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value);
    return {digits, end.ptr};
}

/// How many places the first digit that is not 0 stands in front of the point, the exponent counted.
long long magnitudeOf(std::string_view decimal) {
    const std::string_view number = withoutSign(decimal);
    const std::string_view mantissa = number.substr(0, number.find_first_of("eE"));
    const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<long long>(mantissa.find_first_not_of("0."));
    long long exponent = 0;
    if (mantissa.size() < number.size()) {
        const std::string_view digits = withoutPlus(number.substr(mantissa.size() + 1));
        const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        constexpr long long far = 1LL << 40;  // beyond any number of digits
        if (end.ec != std::errc() || exponent > far || exponent < -far)
            exponent = digits[0] == '-' ? -far : far;
    }
    return point - first + (first > point ? 1 : 0) + exponent;
}

/// Digits, a point among or beside them, and an exponent; no words such as "inf".
bool isDecimal(std::string_view text) {
    text = withoutSign(text);
    const std::size_t exponent = text.find_first_of("eE");
    std::string_view mantissa = text.substr(0, exponent);
    if (exponent != std::string_view::npos) {
        const std::string_view digits = withoutSign(text.substr(exponent + 1));
        if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit)) return false;
    }
    const auto points = std::count(mantissa.begin(), mantissa.end(), '.');
    const auto digits = std::count_if(mantissa.begin(), mantissa.end(), isDigit);
    return points <= 1 && digits > 0 && static_cast<std::size_t>(points + digits) == mantissa.size();
}

std::string readValue(std::string_view text, double& value) {
    if (!isDecimal(text)) return "is not a number";
    const std::string_view number = withoutPlus(text);
    double found = 0.0;
    const auto end = std::from_chars(number.data(), number.data() + number.size(), found);
    // Out of range on the small side is as good as 0.
    if (end.ec == std::errc::result_out_of_range && magnitudeOf(number) > 0) {
        const double limit = std::numeric_limits<double>::max();
        return text.front() == '-' ? "is too small: at least " + showValue(-limit)
                                   : "is too large: at most " + showValue(limit);
    }
    value = found;
    return {};
}

std::string readValue(std::string_view text, bool& value) {
    for (const std::string_view yes : {"yes", "true", "on", "1"}) {
        if (text == yes) return value = true, "";
    }
    for (const std::string_view no : {"no", "false", "off", "0"}) {
        if (text == no) return value = false, "";
    }
    return "is neither yes nor no";
}

std::string readValue(std::string_view text, std::string& value) {
    value = text;
    return {};
}

}  // namespace

template <class T>
std::string KnownType<T>::read(std::string_view text, T& value) {
    return readValue(text, value);
}

template <class T>
std::string KnownType<T>::show(const T& value) {
    return showValue(value);
}

template <class T>
const char* KnownType<T>::metavar() {
    if (std::is_same_v<T, bool>) return "yes|no";
    if (std::is_same_v<T, double>) return "NUMBER";
    return std::is_same_v<T, std::string> ? "TEXT" : "N";
}

template struct KnownType<bool>;
template struct KnownType<signed char>;
template struct KnownType<unsigned char>;
template struct KnownType<short>;
template struct KnownType<unsigned short>;
template struct KnownType<int>;
template struct KnownType<unsigned>;
template struct KnownType<long>;
template struct KnownType<unsigned long>;
template struct KnownType<long long>;
template struct KnownType<unsigned long long>;
template struct KnownType<double>;
template struct KnownType<std::string>;

template class TypedValues<bool>;
template class TypedValues<int>;
template class TypedValues<unsigned>;
template class TypedValues<double>;
template class TypedValues<std::string>;

}  // namespace vorn_3_1::host::detail
