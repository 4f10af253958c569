// Whether the text of a number is one from beginning to end.
#ifndef VORN_HOST_STRICT_NUMBER_H
#define VORN_HOST_STRICT_NUMBER_H

#include <cstddef>
#include <string_view>

#include "tamsu2/variant.h"
#include "vorn/value.h"

namespace vorn_3_1 {
namespace host {
namespace detail {

inline std::size_t skipDigits(std::string_view& text, std::string_view digits = "0123456789") {
    std::size_t count = 0;
    while (count < text.size() && digits.find(text[count]) != std::string_view::npos)
        ++count;
    text.remove_prefix(count);
    return count;
}

/// 0x1F or 1Fh, the forms that the unsigned 64-bit kind takes besides decimal digits.
inline bool isHexadecimal(std::string_view text) {
    if (text.size() < 2) return false;
    if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text.remove_prefix(2);
    } else if (text.back() == 'h' || text.back() == 'H') {
        text.remove_suffix(1);
    } else {
        return false;
    }
    return skipDigits(text, "0123456789ABCDEFabcdef") > 0 && text.empty();
}

/// Whether the text is one decimal number from beginning to end, blanks around it aside. The library
/// stops at the first character that does not belong to the number, and wraps a negative unsigned one.
inline bool isWholeNumber(std::string_view text, tamsu2::qel_variant_type_t kind) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return false;
    text = text.substr(first, text.find_last_not_of(" \t") + 1 - first);
    const bool takesMinus = kind != tamsu2::qel_uint && kind != tamsu2::qel_uint64;
    if (text[0] == '+' || (takesMinus && text[0] == '-')) text.remove_prefix(1);
    std::size_t digits = skipDigits(text);
    if (kind == tamsu2::qel_double) {
        if (!text.empty() && text[0] == '.') {
            text.remove_prefix(1);
            digits += skipDigits(text);
        }
        if (!text.empty() && (text[0] == 'e' || text[0] == 'E')) {
            text.remove_prefix(1);
            if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
            if (skipDigits(text) == 0) return false;
        }
    }
    return digits > 0 && text.empty();
}

inline bool isStrict(const Value& value) {
    switch (const tamsu2::qel_variant_type_t kind = value.value.kind()) {
        case tamsu2::qel_uint64:
            if (isHexadecimal(value.text)) return true;
            [[fallthrough]];
        case tamsu2::qel_int:
        case tamsu2::qel_uint:
        case tamsu2::qel_int64:
        case tamsu2::qel_double:
            return isWholeNumber(value.text, kind);
        default:
            return true;
    }
}

}  // namespace detail
}  // namespace host
}  // namespace vorn_3_1

#endif
