// What a parse has found, and how it ended.
#ifndef VORN_HOST_RESULT_H
#define VORN_HOST_RESULT_H

#if __cplusplus >= 201703L

#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "vorn/host/error.h"
#include "vorn/host/key.h"
#include "vorn/host/text.h"
#include "vorn/host/type.h"

namespace vorn_3_1::host {

class Parser;

/// One value as it was given.
template <class T>
struct Given {
    T value;
    int position = 0;  ///< Rises along the command line; items of a list share the one of their text.
    Origin origin;
};

namespace detail {

class ResultData;

struct Slot;

/// Neighbouring values of one option.
struct Stretch {
    const Values* values = nullptr;  ///< Null if there is nothing.
    const Slot* slot = nullptr;      ///< Null for a default.
    std::size_t begin = 0;
    std::size_t end = 0;
};

}  // namespace detail

/// The values in force, and where they stand. Independent of the parser; movable. A default-constructed result holds
/// nothing.
///
/// Values come from one layer each: the command line, or else the environment, or else settings, or else the default.
/// Ranges of positions speak of that layer.
class Result {
public:
    Result() = default;
    explicit Result(detail::ResultData* owned) : data(owned) {}
    Result(Result&& other) noexcept : data(std::exchange(other.data, nullptr)) {}
    Result& operator=(Result&& other) noexcept {
        std::swap(data, other.data);
        return *this;
    }
    ~Result();

    /// What the key promises: a value that is always there, perhaps one, or several; the last of several occurrences
    /// counts unless they are collected. References are good as long as the result. Throws std::logic_error when
    /// there is nothing to read: the key of a command that was not chosen, of another parser, of a failed parse.
    template <class T>
    decltype(auto) operator[](Key<T> key) const {
        using E = typename Key<T>::Element;
        if constexpr (std::is_same_v<T, std::vector<E>>) {
            const detail::Values* all = read(key);
            static const T none;
            return all != nullptr ? static_cast<const T&>(items<E>(*all)) : none;
        } else if constexpr (std::is_same_v<T, std::optional<E>>) {
            const detail::Values* all = read(key);
            return all != nullptr ? T(items<E>(*all).back()) : T();
        } else if constexpr (std::is_same_v<T, bool>) {
            return static_cast<bool>(items<E>(readOne(key)).back());
        } else {
            return static_cast<const T&>(items<E>(readOne(key)).back());
        }
    }

    /// Every value that was given in the range, in the order of the positions; defaults are not given. Costs what the
    /// stretch holds.
    template <class T>
    std::vector<Given<typename Key<T>::Element>> given(Key<T> key, Range range = {}) const {
        return givenIn<typename Key<T>::Element>(key, range);
    }

    /// The values in the range. Lower layers and the default stand before the first argument: they are read where the
    /// range begins at 0 and holds nothing of a higher layer.
    template <class T>
    std::vector<typename Key<T>::Element> values(Key<T> key, Range range = {}) const {
        return valuesIn<typename Key<T>::Element>(stretch(key, range, true));
    }

    /// The last of them, if there is one.
    template <class T>
    std::optional<typename Key<T>::Element> value(Key<T> key, Range range = {}) const {
        return lastOf<typename Key<T>::Element>(stretch(key, range, true));
    }

    /// Whether it was given and does not merely have a default. A switch that is switched off is not.
    bool isGiven(AnyKey key) const;

    /// Where the value in force comes from: that of the last occurrence.
    Origin origin(AnyKey key) const;

    /// The same by a name as it was declared, synonyms included. An unknown name or another type throws
    /// std::logic_error. A default-constructed result knows no names.
    template <class T>
    std::optional<T> value(Text name, Range range = {}) const {
        return lastOf<T>(stretch(find(name, detail::TypeFactsOf<T>::facts), range, true));
    }
    template <class T>
    std::vector<T> values(Text name, Range range = {}) const {
        return valuesIn<T>(stretch(find(name, detail::TypeFactsOf<T>::facts), range, true));
    }
    template <class T>
    std::vector<Given<T>> given(Text name, Range range = {}) const {
        return givenIn<T>(find(name, detail::TypeFactsOf<T>::facts), range);
    }
    bool isGiven(Text name) const;
    Origin origin(Text name) const;

    /// What stood behind "--", where the parser has no positional arguments.
    const std::vector<std::string>& arguments() const;

    /// The innermost command that was chosen, as Parser::command returned it; null without commands.
    const Parser* command() const;

private:
    friend class Parser;
    friend class Outcome;

    template <class E>
    static const std::vector<E>& items(const detail::Values& values) {
        return static_cast<const detail::TypedValues<E>&>(values).items;
    }
    template <class E>
    static std::vector<E> valuesIn(detail::Stretch found) {
        std::vector<E> all;
        if (found.begin == found.end) return all;
        const auto first = items<E>(*found.values).begin();
        using Steps = typename std::vector<E>::difference_type;
        all.assign(first + static_cast<Steps>(found.begin), first + static_cast<Steps>(found.end));
        return all;
    }
    template <class E>
    static std::optional<E> lastOf(detail::Stretch found) {
        if (found.begin == found.end) return std::nullopt;
        return E(items<E>(*found.values)[found.end - 1]);
    }
    template <class E>
    std::vector<Given<E>> givenIn(AnyKey key, Range range) const {
        std::vector<Given<E>> all;
        const detail::Stretch found = stretch(key, range, false);
        all.reserve(found.end - found.begin);
        for (std::size_t i = found.begin; i < found.end; ++i) {
            all.push_back({items<E>(*found.values)[i], position(found, i), origin(found, i)});
        }
        return all;
    }

    /// Null where nothing was given and there is no default.
    const detail::Values* read(AnyKey key) const;
    const detail::Values& readOne(AnyKey key) const;
    detail::Stretch stretch(AnyKey key, Range range, bool withDefault) const;
    static int position(const detail::Stretch& stretch, std::size_t index);
    Origin origin(const detail::Stretch& stretch, std::size_t index) const;
    AnyKey find(Text name, const detail::TypeFacts& asked) const;

    detail::ResultData* data = nullptr;
};

/// How a parse ended.
class Outcome {
public:
    enum class Asked { nothing, help, version };

    /// Whether the host can do its work: nothing is wrong, and nobody asked for help or the version.
    explicit operator bool() const { return mistakes.empty() && asked == Asked::nothing; }

    /// What was found; with mistakes, what was found all the same.
    Result& result() { return found; }
    const Result& result() const { return found; }

    /// All that is wrong, in the order in which it stands; what is missing comes last.
    const std::vector<Error>& errors() const { return mistakes; }

    /// The first of them. Throws std::logic_error if there is none.
    const Error& error() const;

    /// What a user should be told although it is no mistake, a line each: deprecated options.
    const std::vector<std::string>& warnings() const { return advice; }

    /// What the user wants to see. It wins over mistakes.
    Asked asked = Asked::nothing;

    bool all = false;                     ///< Whether help with all that is hidden was asked for.
    const Parser* askedParser = nullptr;  ///< Whose help: the parser's or a command's.

private:
    friend class Parser;

    Result found;
    std::vector<Error> mistakes;
    std::vector<std::string> advice;
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
