// The types that an option's values may have in a host, and their way into and out of a variant.
#ifndef VORN_HOST_VALUE_TYPE_H
#define VORN_HOST_VALUE_TYPE_H

#if __cplusplus >= 201703L

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "tamsu2/variant.h"

namespace vorn_3_1::host {

/// The type of an option that takes no value: `parser.add<NoValue>("version", "Show the version.")`.
struct NoValue {};

namespace detail {

template <class T, class... Others>
constexpr bool isOneOf = (std::is_same_v<T, Others> || ...);

template <class T>
constexpr bool isSigned = isOneOf<T, int, long, long long>;

template <class T>
constexpr bool isInteger = isSigned<T> || isOneOf<T, unsigned, unsigned long, unsigned long long>;

/// The kind of an option's values. An integer goes by its width, so std::int64_t is kind 8 whichever type
/// stands behind it.
template <class T>
constexpr tamsu2::qel_variant_type_t kindOf() {
    static_assert(isInteger<T> || isOneOf<T, bool, double, std::string_view, NoValue>,
                  "the type of an option is bool, int, unsigned, a 64-bit integer, double, std::string_view "
                  "(texts, also those kept in a std::string) or NoValue");
    if constexpr (std::is_same_v<T, bool>) {
        return tamsu2::qel_bool;
    } else if constexpr (isSigned<T>) {
        return sizeof(T) == 4 ? tamsu2::qel_int : tamsu2::qel_int64;
    } else if constexpr (isInteger<T>) {
        return sizeof(T) == 4 ? tamsu2::qel_uint : tamsu2::qel_uint64;
    } else if constexpr (std::is_same_v<T, double>) {
        return tamsu2::qel_double;
    } else if constexpr (std::is_same_v<T, std::string_view>) {
        return tamsu2::qel_string;
    } else {
        return tamsu2::qel_empty;
    }
}

/// The same for a type that values are read as.
template <class T>
constexpr tamsu2::qel_variant_type_t readKindOf() {
    static_assert(!std::is_same_v<T, NoValue>,
                  "ask isExplicit, occurrences or given about an option without a value");
    return kindOf<T>();
}

inline const char* nameOf(tamsu2::qel_variant_type_t kind) {
    if (kind == tamsu2::qel_bool) return "bool";
    if (kind == tamsu2::qel_double) return "double";
    if (kind == tamsu2::qel_string) return "std::string_view";
    constexpr const char* integers[] = {"int", "unsigned", "std::int64_t", "std::uint64_t"};
    return kind == tamsu2::qel_empty ? "NoValue" : integers[kind - tamsu2::qel_int];
}

/// Whether every V is a T: the same type, an integer that loses nothing, or a text.
template <class T, class V>
constexpr bool fits() {
    if constexpr (std::is_same_v<T, std::string_view>) {
        return std::is_convertible_v<V, std::string_view>;
    } else if constexpr (isInteger<T> && isInteger<V>) {
        return isSigned<T> == isSigned<V> ? sizeof(V) <= sizeof(T) : isSigned<T> && sizeof(V) < sizeof(T);
    } else {
        return std::is_same_v<T, V>;
    }
}

template <class T, class V>
tamsu2::variant_t toVariant(const V& value) {
    static_assert(!std::is_same_v<T, NoValue>, "an option without a value has no default or allowed values");
    constexpr bool isOfType = fits<T, std::decay_t<const V>>();
    static_assert(
        isOfType,
        "this value is not of the option's type (an unsigned one wants 2u or 2ull, a double one 2.0)");
    if constexpr (!isOfType) {
        return {};  // one error is enough
    } else if constexpr (std::is_same_v<T, std::string_view>) {
        return tamsu2::variant_t(std::string(std::string_view(value)).c_str());
    } else {
        return tamsu2::variant_t(static_cast<T>(value));
    }
}

/// `text` is the value's text, which has to outlive what is returned.
template <class T>
T fromVariant(const tamsu2::variant_t& value, const char* text) {
    if constexpr (std::is_same_v<T, std::string_view>) {
        return text;
    } else if constexpr (std::is_same_v<T, bool>) {
        return value.asBool();
    } else if constexpr (std::is_same_v<T, double>) {
        return value.asDouble();
    } else if constexpr (isSigned<T>) {
        return static_cast<T>(value.asInt64());
    } else if constexpr (isInteger<T>) {
        return static_cast<T>(value.asUInt64());
    } else {
        return T();  // kindOf has said what is wrong with it
    }
}

/// One text of many; a message made with '+' compiles to several times as much.
inline std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces)
        text.append(piece);
    return text;
}

[[noreturn]] inline void misread(std::string_view name, tamsu2::qel_variant_type_t kind,
                                 tamsu2::qel_variant_type_t asked) {
    throw std::logic_error(
        joined({"vorn: option '", name, "' is of type ", nameOf(kind), " and is read as ", nameOf(asked)}));
}

}  // namespace detail
}  // namespace vorn_3_1::host

#endif  // C++17

#endif
