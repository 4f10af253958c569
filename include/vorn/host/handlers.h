// The functions that a host has its parser call, and the event handler in front of them.
#ifndef VORN_HOST_HANDLERS_H
#define VORN_HOST_HANDLERS_H

#if __cplusplus >= 201703L

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "vorn/host/strict_number.h"
#include "vorn/host/value_type.h"
#include "vorn/parser.h"
#include "vorn/value.h"

namespace vorn_3_1::host::detail {

/// One function of the host; a kind of event that it does not handle passes it by.
struct Hook {
    virtual ~Hook() = default;
    virtual void optionParsed(const char*) {}
    virtual bool valueParsed(const char*, const Value&, std::string&) { return true; }
    virtual bool unknownArgument(const char*) { return false; }
};

template <class F>
struct HookOf : Hook {
    explicit HookOf(F function) : call(std::move(function)) {}
    F call;
};

template <class F>
struct OptionHook final : HookOf<F> {
    using HookOf<F>::HookOf;
    void optionParsed(const char* name) override { this->call(std::string_view(name)); }
};

template <class F>
struct UnknownHook final : HookOf<F> {
    using HookOf<F>::HookOf;
    bool unknownArgument(const char* argument) override { return this->call(std::string_view(argument)); }
};

/// A verdict on a value is a bool, or the reason why it is refused, which is empty or null if it is not.
template <class F, class... Arguments>
constexpr bool givesVerdict() {
    if constexpr (std::is_invocable_v<F&, Arguments...>) {
        using Verdict = std::decay_t<std::invoke_result_t<F&, Arguments...>>;
        return std::is_same_v<Verdict, bool> || std::is_convertible_v<Verdict, std::string>;
    }
    return false;
}

inline bool accepts(bool verdict, std::string&) { return verdict; }
inline bool accepts(std::string verdict, std::string& reason) {
    reason = std::move(verdict);
    return reason.empty();
}
inline bool accepts(const char* verdict, std::string& reason) {
    return accepts(std::string(verdict == nullptr ? "" : verdict), reason);
}

template <class F>
struct ValueHook final : HookOf<F> {
    using HookOf<F>::HookOf;
    bool valueParsed(const char* name, const Value& value, std::string& reason) override {
        return accepts(this->call(std::string_view(name), value), reason);
    }
};

template <class T, class F>
struct CheckHook final : HookOf<F> {
    CheckHook(F function, std::string name) : HookOf<F>(std::move(function)), option(std::move(name)) {}
    bool valueParsed(const char* name, const Value& value, std::string& reason) override {
        // An abbreviated allowed value is checked in full: the text is as typed, the typed value is not.
        return option != name ||
               accepts(this->call(fromVariant<T>(value.value, value.value.asString())), reason);
    }
    std::string option;
};

/// Hands the library's events on to the host's functions, in the order in which they were added.
class Events final : public EventHandler {
public:
    std::vector<std::unique_ptr<Hook>> hooks;
    std::string reason;  ///< Why the last value was refused, if a function said so.
    bool strictNumbers = true;

    template <class H, class... Arguments>
    void add(Arguments&&... arguments) {
        hooks.push_back(std::make_unique<H>(std::forward<Arguments>(arguments)...));
    }

    bool onOptionParse(const char* name) override {
        return allOf([name](Hook& hook) { return (hook.optionParsed(name), true); });
    }

    bool onValueParse(const char* name, const Value& value) override {
        if (strictNumbers && !isStrict(value)) return false;
        return allOf([&](Hook& hook) { return hook.valueParsed(name, value, reason); });
    }

    /// To the library, false says that the argument has been dealt with.
    bool onUknownArgument(const char* argument) override {
        return allOf([argument](Hook& hook) { return !hook.unknownArgument(argument); });
    }

private:
    template <class Question>
    bool allOf(Question isTrueOf) {
        // By index, since a function may add another one. NOLINTNEXTLINE(modernize-loop-convert)
        for (std::size_t i = 0; i < hooks.size(); ++i) {
            if (!isTrueOf(*hooks[i])) return false;
        }
        return true;
    }
};

}  // namespace vorn_3_1::host::detail

#endif  // C++17

#endif
