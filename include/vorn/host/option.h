// Shaping an option, a switch or a positional argument once it is declared.
#ifndef VORN_HOST_OPTION_H
#define VORN_HOST_OPTION_H

#if __cplusplus >= 201703L

#include <initializer_list>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "vorn/host/key.h"
#include "vorn/host/text.h"
#include "vorn/host/type.h"

namespace vorn_3_1::host {

/// A name for a value; see Option::named.
template <class T>
struct Named {
    const char* name;
    T value;
};

namespace detail {

class Table;

/// What is declared. Help and version are the companion's own.
enum class What : unsigned char { option, toggle, flag, count, positional, rest, help, helpAll, version };

/// What a declaration is for. What makes no sense for it does not compile.
enum class Role { option, toggle, occurrence, argument };

/// How many values are read.
enum class Reads { perhaps, one, always, several };

template <class T, Reads reads>
using ReadAs = std::conditional_t<reads == Reads::several, std::vector<T>,
                                  std::conditional_t<reads == Reads::perhaps, std::optional<T>, T>>;

using IsLess = bool (*)(const Values& left, const Values& right, std::size_t leftIndex,
                        std::size_t rightIndex);

/// The part of a builder that knows no type. Each operation either does all it says or throws and changes nothing.
class Declaration {
public:
    Declaration(Table& owner, unsigned number) : table(&owner), index(number) {}

    AnyKey key() const;
    void addSynonym(Text name) const;
    void allowValues(Owned<Values> values) const;
    void nameValues(std::vector<std::string> names, Owned<Values> values) const;
    void setLimits(Owned<Values> low, Owned<Values> high, IsLess isLess) const;
    void addCheck(Owned<Check> check) const;
    void setDefault(Owned<Values> values) const;
    void setImplicit(Owned<Values> value) const;
    void setRequired() const;
    void setList(char separator) const;
    void setRepeated() const;
    void setOptional() const;
    void setAtLeast(unsigned count) const;
    void setEnvironment(Text variable) const;
    void setMetavar(Text name) const;
    void setGroup(Text title) const;
    void setHidden() const;
    void setDeprecated(Text instead) const;
    void addNeed(AnyKey other) const;
    void setGlobal() const;
    void setOnlyOnCommandLine() const;
    void setSecret() const;
    void setCompletion(Completion kind) const;
    void setOffer(Owned<Offer> offer) const;

private:
    Table* table;
    unsigned index;
};

template <class T, class F>
class CheckOf final : public Check {
public:
    explicit CheckOf(F judging) : function(std::move(judging)) {}
    std::string judge(const Values& values, std::size_t index) const override {
        return function(static_cast<const TypedValues<T>&>(values).items[index]);
    }

private:
    F function;
};

template <class F>
class OfferOf final : public Offer {
public:
    explicit OfferOf(F offering) : function(std::move(offering)) {}
    bool wantsResult() const override { return !isSimple; }
    std::vector<std::string> offers(std::string_view typed,
                                    [[maybe_unused]] const Result& before) const override {
        if constexpr (isSimple) {
            return function(typed);
        } else {
            return function(typed, before);
        }
    }

private:
    static constexpr bool isSimple = std::is_invocable_v<const F&, std::string_view>;

    F function;
};

}  // namespace detail

/// Shapes what Parser::add and its like have just declared; small and cheap to copy. Operations that change what is
/// read return a builder of another type, whose key() reads that; use what they return. They may come in any order.
///
/// An operation that contradicts an earlier one throws RegistrationError with what to change, and has no effect. In
/// a command that happens when a user chooses it, or in Parser::verify.
template <class T, detail::Reads reads, detail::Role role>
class Option {
    template <detail::Reads other>
    using Reading = Option<T, other, role>;
    static constexpr bool hasValue = role == detail::Role::option || role == detail::Role::argument;
    static constexpr bool isNamed = role != detail::Role::argument;

public:
    explicit Option(detail::Declaration made) : declaration(made) {
        static_assert(
            detail::isTaught<T> || std::is_enum_v<T>,
            "values of this type are not known: include the header that teaches it (vorn/host/path.h, "
            "duration.h, byte_size.h), teach Type<T>, or take a known one (double for float); for several "
            "values use add<T>(...).repeated() or list()");
    }

    /// What the result is read with.
    Key<detail::ReadAs<T, reads>> key() const { return Key<detail::ReadAs<T, reads>>(declaration.key()); }

    /// Adds allowed values; no other is accepted then. A text may be shortened to a beginning that fits one alone.
    template <class... V>
    Option allow(const V&... values) const {
        static_assert(hasValue, "a switch or a flag takes no value");
        auto* all = new detail::TypedValues<T>;
        detail::Owned<detail::Values> owned(all);
        (all->items.push_back(T(values)), ...);
        declaration.allowValues(std::move(owned));
        return *this;
    }

    /// Adds allowed values by their names, which are all that a user can type: an enumeration is read like that. A
    /// name may be shortened to a beginning that fits one value alone.
    Option named(std::initializer_list<Named<T>> choices) const {
        static_assert(hasValue, "a switch or a flag takes no value");
        auto* all = new detail::TypedValues<T>;
        detail::Owned<detail::Values> owned(all);
        std::vector<std::string> names;
        for (const Named<T>& choice : choices) {
            names.emplace_back(Text(choice.name));
            all->items.push_back(choice.value);
        }
        declaration.nameValues(std::move(names), std::move(owned));
        return *this;
    }

    /// The smallest and the largest value that is accepted, both included.
    Option range(const T& low, const T& high) const { return limit(row(low), row(high)); }
    Option minimum(const T& low) const { return limit(row(low), {}); }
    Option maximum(const T& high) const { return limit({}, row(high)); }

    /// Has every value judged by `function(const T&)`, which returns a text: empty, or the reason against the value.
    template <class F>
    Option check(F function) const {
        static_assert(
            std::is_invocable_r_v<std::string, const F&, const T&>,
            "the function takes a value and returns a std::string: empty, or the reason against it");
        declaration.addCheck(detail::Owned<detail::Check>(new detail::CheckOf<T, F>(std::move(function))));
        return *this;
    }

    /// The value when none is given.
    [[nodiscard]] auto defaultTo(const T& value) const {
        static_assert(role != detail::Role::occurrence, "a flag or a count has no default but false or 0");
        declaration.setDefault(row(value));
        return Reading < reads == detail::Reads::several ? reads : detail::Reads::always > (declaration);
    }

    /// The values of a list when none is given.
    [[nodiscard]] auto defaultTo(std::initializer_list<T> values) const {
        static_assert(hasValue, "one value is enough");
        auto* all = new detail::TypedValues<T>;
        detail::Owned<detail::Values> owned(all);
        all->items = values;
        declaration.setDefault(std::move(owned));
        return Reading < reads == detail::Reads::several ? reads : detail::Reads::always > (declaration);
    }

    /// The value when the option stands alone. Another one has to stand behind '=' then.
    Option implicit(const T& value) const {
        static_assert(role == detail::Role::option, "only an option with a value can stand without it");
        declaration.setImplicit(row(value));
        return *this;
    }

    /// Without it, the command line is wrong.
    [[nodiscard]] auto required() const {
        static_assert(
            role == detail::Role::option,
            "a positional argument is required anyway, and a switch or a flag has a meaning without");
        declaration.setRequired();
        return Reading < reads == detail::Reads::several ? reads : detail::Reads::always > (declaration);
    }

    /// Cuts each text into values and collects all of them.
    [[nodiscard]] auto list(char separator = ',') const {
        static_assert(hasValue, "a switch or a flag takes no value");
        declaration.setList(separator);
        return Reading<detail::Reads::several>(declaration);
    }

    /// Collects the values of all occurrences; otherwise the last one counts.
    [[nodiscard]] auto repeated() const {
        static_assert(role == detail::Role::option, "use atLeast(n) for positional arguments");
        declaration.setRepeated();
        return Reading<detail::Reads::several>(declaration);
    }

    /// A positional argument that may be left out.
    [[nodiscard]] auto optional() const {
        static_assert(role == detail::Role::argument,
                      "options are optional unless required() says otherwise");
        declaration.setOptional();
        return Reading < reads == detail::Reads::one ? detail::Reads::perhaps : reads > (declaration);
    }

    /// Takes all positional arguments that no other one needs, `count` or more.
    [[nodiscard]] auto atLeast(unsigned count) const {
        static_assert(role == detail::Role::argument, "use repeated() or list() for options");
        declaration.setAtLeast(count);
        return Reading<detail::Reads::several>(declaration);
    }

    /// Adds a further name.
    Option synonym(Text name) const {
        static_assert(isNamed, "a positional argument has no name on the command line");
        declaration.addSynonym(name);
        return *this;
    }

    /// The variable that is read when the command line does not have the option. A switch in it reads 1/0, yes/no,
    /// true/false, on/off; an empty variable counts as not set.
    Option environment(Text variable) const {
        static_assert(isNamed, "a positional argument comes from the command line alone");
        declaration.setEnvironment(variable);
        return *this;
    }

    /// What help calls the value; otherwise the type says it.
    Option metavar(Text name) const {
        declaration.setMetavar(name);
        return *this;
    }

    /// The heading that help shows it under; Parser::group sets it for several.
    Option group(Text title) const {
        declaration.setGroup(title);
        return *this;
    }

    /// Only --help-all shows it. It works all the same.
    Option hidden() const {
        declaration.setHidden();
        return *this;
    }

    /// Whoever uses it is warned, with this advice: "use --size".
    Option deprecated(Text instead) const {
        declaration.setDeprecated(instead);
        return *this;
    }

    /// Whoever gives it has to give the other one, too, which may be an outer parser's.
    Option needs(AnyKey other) const {
        declaration.addNeed(other);
        return *this;
    }

    /// Is refused in settings, and left out of Parser::effective: --show-settings, --force.
    Option onlyOnCommandLine() const {
        declaration.setOnlyOnCommandLine();
        return *this;
    }

    /// Help, messages and Parser::effective do not show its value: a password, a token. The fields of an Error hold it.
    Option secret() const {
        static_assert(hasValue, "a switch or a flag takes no value");
        declaration.setSecret();
        return *this;
    }

    /// May also stand behind a command.
    Option global() const {
        static_assert(isNamed, "a positional argument belongs to one command");
        declaration.setGlobal();
        return *this;
    }

    /// What completion offers for the value, if the type does not say it: files, folders, or what
    /// `function(std::string_view typed)` returns, a std::vector<std::string>. `function(std::string_view typed, const
    /// Result& before)` also sees what the words in front say, mistakes left out.
    Option completes(Completion kind) const {
        declaration.setCompletion(kind);
        return *this;
    }
    template <class F,
              class = std::enable_if_t<std::is_invocable_v<const F&, std::string_view> ||
                                       std::is_invocable_v<const F&, std::string_view, const Result&>>>
    Option completes(F function) const {
        declaration.setOffer(detail::Owned<detail::Offer>(new detail::OfferOf<F>(std::move(function))));
        return *this;
    }

private:
    static detail::Owned<detail::Values> row(const T& value) {
        auto* one = new detail::TypedValues<T>;
        detail::Owned<detail::Values> owned(one);
        one->items.push_back(value);
        return owned;
    }

    Option limit(detail::Owned<detail::Values> low, detail::Owned<detail::Values> high) const {
        static_assert(hasValue, "a switch or a flag takes no value");
        declaration.setLimits(
            std::move(low), std::move(high),
            [](const detail::Values& left, const detail::Values& right, std::size_t i, std::size_t k) {
                return static_cast<const detail::TypedValues<T>&>(left).items[i] <
                       static_cast<const detail::TypedValues<T>&>(right).items[k];
            });
        return *this;
    }

    detail::Declaration declaration;
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
