// Whether the text of a number is one from beginning to end.
#ifndef VORN_HOST_STRICT_NUMBER_H
#define VORN_HOST_STRICT_NUMBER_H

#if __cplusplus >= 201703L

#include <string_view>

#include "tamsu2/variant.h"
#include "vorn/value.h"

namespace vorn_3_1::host::detail {

inline constexpr std::string_view decimalDigits = "0123456789";
inline constexpr std::string_view hexadecimalDigits = "0123456789ABCDEFabcdef";

inline bool skipOne(std::string_view& text, std::string_view letters) {
    if (text.empty() || letters.find(text[0]) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

inline void skipAll(std::string_view& text, std::string_view letters) {
    while (skipOne(text, letters)) {
    }
}

/// 0x1F or 1Fh, the forms that the unsigned 64-bit kind takes besides decimal digits.
inline bool isHexadecimal(std::string_view text) {
    if (text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X") {
        text.remove_prefix(2);
    } else if (text.back() == 'h' || text.back() == 'H') {
        text.remove_suffix(1);
    } else {
        return false;
    }
    skipAll(text, hexadecimalDigits);
    return text.empty();
}

/// Whether the text is one decimal number from beginning to end; reading skips blanks in front of it. The library
/// has read a number at its beginning, but stops at the first character that does not belong to that, and wraps a
/// negative unsigned one.
inline bool isWholeNumber(std::string_view text, tamsu2::qel_variant_type_t kind) {
    skipAll(text, " \t\n\v\f\r");
    skipOne(text, kind == tamsu2::qel_uint || kind == tamsu2::qel_uint64 ? "+" : "+-");
    skipAll(text, decimalDigits);
    if (kind == tamsu2::qel_double) {
        if (skipOne(text, ".")) skipAll(text, decimalDigits);
        if (skipOne(text, "eE")) {
            skipOne(text, "+-");
            skipAll(text, decimalDigits);
        }
    }
    return text.empty();
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

}  // namespace vorn_3_1::host::detail

#endif  // C++17

#endif
