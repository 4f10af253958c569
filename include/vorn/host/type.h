// The types that values may have.
//
// Taught already: bool, the integers, double, std::string; and in headers of their own paths (path.h), durations
// (duration.h) and byte sizes (byte_size.h). A host teaches another one:
//
//     template <>
//     struct vorn::host::Type<Point> {
//         static std::string read(std::string_view text, Point& value);
//         static std::string show(const Point& value) { return ... }
//         static const char* metavar() { return "X:Y"; }
//     };
#ifndef VORN_HOST_TYPE_H
#define VORN_HOST_TYPE_H

#if __cplusplus >= 201703L

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "vorn/host/values.h"

namespace vorn_3_1::host {

/// What the companion knows of a type of values. An enumeration needs none, if its option is `named`.
///
///     static std::string read(std::string_view text, T& value);
///         Reads the whole text. Returns "" when it did, or why not, in words that go on from "'text' ...": "is not a
///         date" is shown as "'x' is not a date, which '--since' takes". One that begins with "is too large" or "is too
///         small" counts as out of range; any other text is shown behind a colon.
///     static std::string show(const T& value);   The value as a user would type it.
///     static const char* metavar();              What help calls it: "PATH", "N", ...
template <class T>
struct Type;

namespace detail {

/// One of the types that the companion reads itself, in type.cpp.
template <class T>
struct KnownType {
    static std::string read(std::string_view text, T& value);
    static std::string show(const T& value);
    static const char* metavar();
};

template <class T, class = void>
constexpr bool isTaught = false;
template <class T>
constexpr bool isTaught<T, std::void_t<decltype(sizeof(Type<T>))>> = true;

}  // namespace detail

// clang-format off
template <> struct Type<bool> : detail::KnownType<bool> {};                ///< yes/no, true/false, on/off, 1/0
template <> struct Type<signed char> : detail::KnownType<signed char> {};  ///< A number, as all integers.
template <> struct Type<unsigned char> : detail::KnownType<unsigned char> {};
template <> struct Type<short> : detail::KnownType<short> {};
template <> struct Type<unsigned short> : detail::KnownType<unsigned short> {};
template <> struct Type<int> : detail::KnownType<int> {};
template <> struct Type<unsigned> : detail::KnownType<unsigned> {};
template <> struct Type<long> : detail::KnownType<long> {};
template <> struct Type<unsigned long> : detail::KnownType<unsigned long> {};
template <> struct Type<long long> : detail::KnownType<long long> {};
template <> struct Type<unsigned long long> : detail::KnownType<unsigned long long> {};
template <> struct Type<double> : detail::KnownType<double> {};
template <> struct Type<std::string> : detail::KnownType<std::string> {};
// clang-format on

namespace detail {

template <class T>
class TypedValues;

/// What the companion asks of a type, without knowing it.
template <class T>
struct TypeFactsOf {
    static Values* make() { return new TypedValues<T>; }
    static const char* metavar() {
        if constexpr (isTaught<T>) {
            return Type<T>::metavar();
        } else {
            return "NAME";
        }
    }
    static constexpr TypeFacts facts = {&make,
                                        &metavar,
                                        std::is_arithmetic_v<T> && !std::is_same_v<T, bool>,
                                        std::is_same_v<T, std::string>,
                                        isTaught<T>,
                                        CompletionOf<T>::kind};
};

template <class T, class = void>
constexpr bool isComparable = false;
template <class T>
constexpr bool isComparable<T, std::void_t<decltype(std::declval<const T&>() == std::declval<const T&>())>> =
    true;

/// A row of values of one type: those of a result, a default, the allowed ones, a limit.
template <class T>
class TypedValues final : public Values {
public:
    std::vector<T> items;

    std::size_t size() const override { return items.size(); }
    void clear() override { items.clear(); }
    void dropLast() override { items.pop_back(); }
    void take(const Values& other, std::size_t index) override {
        items.push_back(static_cast<const TypedValues&>(other).items[index]);
    }
    bool isSame(std::size_t index, const Values& other, std::size_t otherIndex) const override {
        if constexpr (isComparable<T>) {
            return items[index] == static_cast<const TypedValues&>(other).items[otherIndex];
        } else {
            return show(index) == other.show(otherIndex);
        }
    }
    std::string read(std::string_view text) override {
        if constexpr (isTaught<T>) {
            T value{};
            std::string reason = Type<T>::read(text, value);
            if (reason.empty()) items.push_back(std::move(value));
            return reason;
        } else {
            return std::string(text);  // not reached: such a type is read by its names
        }
    }
    std::string show([[maybe_unused]] std::size_t index) const override {
        if constexpr (isTaught<T>) {
            return Type<T>::show(items[index]);
        } else {
            return {};  // likewise
        }
    }
};

// In the library already.
extern template class TypedValues<bool>;
extern template class TypedValues<int>;
extern template class TypedValues<unsigned>;
extern template class TypedValues<double>;
extern template class TypedValues<std::string>;

}  // namespace detail
}  // namespace vorn_3_1::host

#endif  // C++17

#endif
