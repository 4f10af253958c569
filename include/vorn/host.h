// The companion for host programs in C++17: what a host's author reaches for first.
//
//     namespace host = vorn_3_1::host;
//
//     host::Parser parser;
//     parser.add<int>("level,l", "How hard to try.").allow(1, 2, 3).defaultTo(2).synonym("effort");
//     parser.add<std::string_view>("input", "").positional();
//     const host::Result result = parser.parseOrExit(argc, argv);
//     const int level = *result.value<int>("level");
//
// All of it is inline and stands on the public interface alone. Where that interface leaves a choice to
// the host, the safe one is the default here: an unknown argument is an error, a mistyped option is not
// taken for a positional argument, a value is not cut at ',', a number is read to its end, and a refused
// registration throws.
#ifndef VORN_HOST_H
#define VORN_HOST_H

// Below C++17 there is nothing here but a message for whoever uses it, so that a host that merely includes every
// header compiles.
#if __cplusplus >= 201703L

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "vorn/host/handlers.h"
#include "vorn/host/registered_options.h"
#include "vorn/host/response_file.h"
#include "vorn/host/value_type.h"
#include "vorn/vorn.h"

namespace vorn_3_1::host {

/// Departures from a Parser's defaults; combine them with '|'.
enum class Flags : int {
    none = 0,
    ignoreUnknown = 2,              ///< Drop an argument that nothing takes; otherwise it is an error.
    positionalAfterTerminator = 4,  ///< Arguments after "--" go to the positional option, too.
    hyphenPositional = 8,           ///< A positional argument may begin with '-' if it names no option.
    positionalRepeat = 16           ///< The first positional argument makes all later ones positional.
};

constexpr Flags operator|(Flags left, Flags right) noexcept {
    return static_cast<Flags>(static_cast<int>(left) | static_cast<int>(right));
}

/// Options of this group, with or without a title ("vorn_hidden:Title"), show in the hidden help only.
inline constexpr const char* hiddenGroup = "vorn_hidden";

/// The positions from `low` to below `high`; everything unless limited. Positions rise along the command
/// line, so those of one option cut it into stretches in which another may be asked for.
struct Between {
    int low = 0;
    int high = INT_MAX;
};

constexpr Between between(int low, int high) noexcept { return Between{low, high}; }
constexpr Between before(int high) noexcept { return Between{0, high}; }
constexpr Between from(int low) noexcept { return Between{low, INT_MAX}; }

namespace detail {

inline constexpr const char* logSwitch = "vornoption=vornlogenable=1";

struct Destroy {
    template <class T>
    void operator()(T* object) const noexcept {
        object->destroy();
    }
};

}  // namespace detail

class Parser;

/// Shapes the option that Parser::add has just registered, in the same expression: its operations are for
/// temporaries only, so that no builder outlives the next registration. One that is kept in a variable gets an
/// error that says so.
template <class T>
class Option {
public:
    Option(const Option&) = delete;
    Option& operator=(const Option&) = delete;

    /// Adds allowed values; no other value is accepted then. Users may type an unambiguous beginning of a text.
    template <class... V>
    Option&& allow(const V&... values) && {
        (allowOne(detail::toVariant<T>(values)), ...);
        return std::move(*this);
    }

    /// The value of the option when it is not given. It stands before the first argument. If there are allowed
    /// values and it is none of them, the next parse throws RegistrationError.
    template <class V>
    Option&& defaultTo(const V& value) && {
        tamsu2::variant_t& kept = table.last().defaultValue;
        kept = detail::toVariant<T>(value);
        builder->defaultValue(kept);
        return std::move(*this);
    }

    /// Adds a further name. Throws RegistrationError when it is taken.
    Option&& synonym(const char* name) && {
        table.addSynonym(name);
        builder->synonym(name);
        return std::move(*this);
    }

    /// Cuts the text of one argument into several values; otherwise it is one value, whatever it holds.
    Option&& list(char separator = ',') && {
        static_assert(!detail::isOneOf<T, bool, NoValue>, "a switch or an option without a value is no list");
        builder->tokenize(separator);
        return std::move(*this);
    }

    /// Makes the option take the arguments that name no option. Throws RegistrationError for a second one.
    Option&& positional() && {
        static_assert(!detail::isOneOf<T, bool, NoValue>,
                      "a switch or an option without a value cannot take positional arguments");
        table.makePositional();
        builder->positional();
        return std::move(*this);
    }

    /// Has every value judged by `function(T)`, which returns whether it accepts the value, or a text: the
    /// reason for refusing it, which follows the library's error text, or "" or null to accept it.
    template <class F>
    Option&& check(F function) && {
        static_assert(detail::givesVerdict<F, T>(),
                      "the function takes a value of the option's type and returns whether to accept it: a "
                      "bool, or the reason against it as a const char* or std::string");
        events.add<detail::CheckHook<T, F>>(std::move(function), table.last().names.front());
        return std::move(*this);
    }

    /// Only there for the compiler to name when it refuses an operation on a variable.
    struct BuilderIsForOneExpression;
    template <class... V>
    BuilderIsForOneExpression allow(const V&...) & = delete;
    template <class V>
    BuilderIsForOneExpression defaultTo(const V&) & = delete;
    BuilderIsForOneExpression synonym(const char*) & = delete;
    BuilderIsForOneExpression list(char = ',') & = delete;
    BuilderIsForOneExpression positional() & = delete;
    template <class F>
    BuilderIsForOneExpression check(F) & = delete;

private:
    friend class Parser;
    Option(IOption* shaped, detail::RegisteredOptions& known, detail::Events& raised)
        : builder(shaped), table(known), events(raised) {}

    void allowOne(tamsu2::variant_t value) {
        builder->allowValue(value);
        table.last().allowedValues.push_back(std::move(value));
    }

    IOption* builder;
    detail::RegisteredOptions& table;
    detail::Events& events;
};

/// One value as it was given, or an occurrence without a value.
struct Given {
    std::string_view option;  ///< The first name of the option.
    std::string_view text;    ///< The value's text, "1" or "0" for a switch; "" without a value.
    int position;
    tamsu2::variant_t value;  ///< Empty without a value.

    bool hasValue() const noexcept { return value.kind() != tamsu2::qel_empty; }

    /// The typed value. Throws std::logic_error when the option is of another type, or without a value.
    template <class T>
    T as() const {
        constexpr tamsu2::qel_variant_type_t asked = detail::readKindOf<T>();
        if (value.kind() != asked) detail::misread(option, value.kind(), asked);
        return detail::fromVariant<T>(value, text.data());
    }
};

/// What one or more parses found. Independent of the parser, and movable. All texts that it hands out stay
/// valid as long as the result does and are followed by a NUL character, so data() is a C string.
///
/// Names are those that were registered, synonyms included and abbreviations not. A name that was not
/// registered, or a type that is not the option's, throws std::logic_error.
class Result {
public:
    /// Holds nothing and is only good for being assigned to or handed to a parse.
    Result() = default;

    /// The last value in the range. Without one the default, if the range begins at 0: the default stands
    /// before the first argument. Otherwise nothing.
    template <class T>
    std::optional<T> value(std::string_view name, Between range = {}) const {
        const std::vector<Value> all = readOrDefault(find<T>(name), range);
        if (all.empty()) return std::nullopt;
        return detail::fromVariant<T>(all.back().value, all.back().text);
    }

    /// All values in the range, in the order of the command line; without any the default, as above.
    template <class T>
    std::vector<T> values(std::string_view name, Between range = {}) const {
        std::vector<T> all;
        for (const Value& one : readOrDefault(find<T>(name), range)) {
            all.push_back(detail::fromVariant<T>(one.value, one.text));
        }
        return all;
    }

    /// The positions at which the option occurred.
    std::vector<int> occurrences(std::string_view name, Between range = {}) const {
        std::vector<int> positions;
        if (!raw->present(firstName(name), range.low, range.high)) return positions;
        for (int position = raw->nextPosition(); position < range.high; position = raw->nextPosition()) {
            positions.push_back(position);
        }
        return positions;
    }

    /// Whether the option was given, and does not merely have a default.
    bool isExplicit(std::string_view name, Between range = {}) const {
        return raw->present(firstName(name), range.low, range.high) && raw->nextPosition() != INT_MAX;
    }

    /// The arguments after "--".
    std::vector<std::string_view> arguments() const {
        std::vector<std::string_view> all;
        const char* text = nullptr;
        int code = raw->getFirstArgument(&text);
        for (; code == 0; code = raw->getNextArgument(&text))
            all.emplace_back(text);
        if (code == 3) throw std::bad_alloc();
        return all;
    }

    /// Everything that was given, of all options, in the order of the command line: one element for each
    /// value, list items included, and one for each occurrence without a value.
    std::vector<Given> given(Between range = {}) const {
        std::vector<Given> byOption;
        for (const auto& record : table->records)
            collect(*record, byOption);
        std::vector<Place> order;
        for (const Given& one : byOption) {
            if (one.position >= range.low && one.position < range.high) order.push_back({one.position, &one});
        }
        std::qsort(order.data(), order.size(), sizeof(Place), comparePlaces);
        std::vector<Given> all;
        all.reserve(order.size());
        for (const Place& place : order)
            all.push_back(*place.given);
        return all;
    }

    /// The plain interface; stays owned by this object.
    IParseResult* plain() const noexcept { return raw.get(); }

private:
    friend class Parser;

    template <class T>
    const detail::Record& find(std::string_view name) const {
        return table->find(name, detail::readKindOf<T>());
    }

    const char* firstName(std::string_view name) const { return table->find(name).names.front().c_str(); }

    struct Place {
        int position;
        const Given* given;
    };

    static int comparePlaces(const void* left, const void* right) {
        return static_cast<const Place*>(left)->position < static_cast<const Place*>(right)->position ? -1
                                                                                                      : 1;
    }

    /// The values in the range. The library's own ranges go by occurrences in one query and by values in
    /// the next, and include a default; these go by values alone.
    std::vector<Value> read(const detail::Record& record, Between range) const {
        std::vector<Value> all;
        const char* name = record.names.front().c_str();
        if (!isExplicit(name)) return all;
        Value found = raw->get(name, 0, range.high);
        for (; found.status == 0 && found.position < range.high; found = raw->next(name)) {
            if (found.position >= range.low && found.value.kind() != tamsu2::qel_empty) all.push_back(found);
        }
        if (found.status == 3) throw std::bad_alloc();
        return all;
    }

    std::vector<Value> readOrDefault(const detail::Record& record, Between range) const {
        std::vector<Value> all = read(record, range);
        const tamsu2::variant_t& fallback = record.defaultValue;
        if (all.empty() && range.low <= 0 && fallback.kind() != tamsu2::qel_empty) {
            all.push_back({fallback.asString(), 0, 0, fallback});
        }
        return all;
    }

    /// Appends what was given of one option. Values follow their occurrence; an empty positional argument
    /// is an occurrence without a value among others with one.
    void collect(const detail::Record& record, std::vector<Given>& all) const {
        const std::string& name = record.names.front();
        const std::vector<int> starts = occurrences(name);
        const std::vector<Value> values = read(record, {});
        std::size_t next = 0;
        for (std::size_t i = 0; i < starts.size(); ++i) {
            const int end = i + 1 < starts.size() ? starts[i + 1] : INT_MAX;
            const bool isBare = next == values.size() || values[next].position > end;
            if (isBare) all.push_back({name, "", starts[i], {}});
            for (; next < values.size() && values[next].position < end; ++next) {
                all.push_back({name, values[next].text, values[next].position, values[next].value});
            }
        }
    }

    std::unique_ptr<IParseResult, detail::Destroy> raw;
    std::shared_ptr<const detail::RegisteredOptions> table;
};

/// How a parse ended. The result holds what was stored until then.
struct Outcome {
    Result result;
    int code = 0;  ///< 0 for success; others as IParser gives them, and 2 for an unreadable response file.
    std::string text;  ///< What went wrong, for people to read; "" after success.

    explicit operator bool() const noexcept { return code == 0; }
};

/// Owns a parser, the host's functions and a table of what was registered. Movable; a moved-from parser is
/// only good for being destroyed or assigned to. Throws std::bad_alloc when memory runs out.
class Parser {
public:
    explicit Parser(Flags flags = Flags::none);

    /// Registers an option and returns its builder, which is to be used in the same expression.
    ///
    /// T            type of every value; bool makes a switch with a "no-" form, NoValue an option without.
    /// names        up to three names separated by ','; the first one names the option in every message.
    /// description  without one the option is missing from the help, as positional options always are.
    /// group        "group" or "group:Title of the group".
    ///
    /// Throws RegistrationError when a name is taken or breaks a rule; the parser is as before then.
    template <class T>
    Option<T> add(const char* names, const char* description, const char* group = "") {
        return Option<T>(enter(names, description, detail::kindOf<T>(), group), *table, *events);
    }

    /// Registers an option of which parseOrExit shows the help, or the help with the hidden group.
    Parser& help(const char* names = "help", const char* group = "");
    Parser& helpAll(const char* names = "help-all", const char* group = "");

    /// The lines above the options in the help, without the final line feed.
    Parser& usage(std::string text) {
        usageText = std::move(text);
        return *this;
    }

    /// Whether a number must be one to its end, which is the default: otherwise "12abc" reads as 12, "0x10"
    /// as 0 for an int, and "-1" wraps around for an unsigned type.
    Parser& strictNumbers(bool on) {
        events->strictNumbers = on;
        return *this;
    }

    /// Reads each argument "@file" before "--" as a response file with one argument per line, as parseStream
    /// does, in its place on the command line. The file ends where it ends: the value of an option stands in
    /// the same file, "--" in a file ends the options of that file, and "@" is nothing special inside. A file
    /// that cannot be read fails the parse with code 2.
    Parser& responseFiles(bool on = true) {
        expandsFiles = on;
        return *this;
    }

    /// Calls `function(std::string_view name, const Value& value)` for every value. It returns a verdict as
    /// that of Option::check does.
    template <class F>
    Parser& onValue(F function) {
        static_assert(
            detail::givesVerdict<F, std::string_view, const Value&>(),
            "the function takes a std::string_view and a const Value& and returns whether to accept "
            "the value: a bool, or the reason against it as a const char* or std::string");
        events->add<detail::ValueHook<F>>(std::move(function));
        return *this;
    }

    /// Calls `function(std::string_view name)` for every occurrence of an option, before its values.
    template <class F>
    Parser& onOption(F function) {
        static_assert(std::is_invocable_v<F&, std::string_view>,
                      "the function takes the name of the option, a std::string_view");
        events->add<detail::OptionHook<F>>(std::move(function));
        return *this;
    }

    /// Calls `function(std::string_view argument)` for every argument that nothing takes, until one returns
    /// true: it has dealt with the argument, which is no error then.
    template <class F>
    Parser& onUnknown(F function) {
        static_assert(std::is_invocable_r_v<bool, F&, std::string_view>,
                      "the function takes the argument, a std::string_view, and returns a bool: whether it "
                      "has dealt with it");
        events->add<detail::UnknownHook<F>>(std::move(function));
        return *this;
    }

    /// Parses the command line, appending to `into` if it holds something. `argv` is only read.
    [[nodiscard]] Outcome parse(int argc, const char* const* argv, Result into = {});

    /// Parses a text with one argument per line, as parseStream does.
    [[nodiscard]] Outcome parseText(const char* text, Result into = {});

    /// Parses the command line and ends the process unless the host has something to do: help was asked for
    /// (help on standard output, exit code 0) or the parse failed (the error and a hint on standard error,
    /// exit code 2). Registers the option "help" unless there is one. Help wins over errors behind it.
    /// Appends to `into`, such as the result of a settings text, as parse does.
    [[nodiscard]] Result parseOrExit(int argc, const char* const* argv, Result into = {});

    /// The usage and the help text, with the hidden group or without.
    std::string helpText(bool hidden = false);

    /// The plain interface; stays owned by this object. Options registered there are unknown here.
    IParser* plain() const noexcept { return raw.get(); }

private:
    IOption* enter(const char* names, const char* description, tamsu2::qel_variant_type_t kind,
                   const char* group);
    Outcome begin(Result into);
    Outcome finish(Outcome outcome, int code);
    int parseWords(int argc, const char* const* argv, Outcome& outcome);
    int parseWithFiles(int argc, const char* const* argv, Outcome& outcome);
    int parseFile(const char* name, bool isLogged, Outcome& outcome);

    std::shared_ptr<detail::RegisteredOptions> table;
    std::unique_ptr<detail::Events> events;
    std::unique_ptr<IParser, detail::Destroy> raw;
    std::string usageText;
    std::string helpName;
    std::string helpAllName;
    bool expandsFiles = false;
};

inline Parser::Parser(Flags flags) : table(new detail::RegisteredOptions), events(new detail::Events) {
    IParser* made = nullptr;
    // These two are on, and a flag that names one of them switches it off.
    const int safe = unknownIsError | hyphenNotPositional;
    if (createParser(&made, static_cast<int>(flags) ^ safe) != 0) throw std::bad_alloc();
    raw.reset(made);
    if (!raw->addHandler(events.get())) throw std::bad_alloc();
}

inline IOption* Parser::enter(const char* names, const char* description, tamsu2::qel_variant_type_t kind,
                              const char* group) {
    table->add(names, kind);
    return raw->option(names, description, kind, group)->tokenize('\0');
}

inline Parser& Parser::help(const char* names, const char* group) {
    add<NoValue>(names, "Show this help and exit.", group);
    helpName = table->last().names.front();
    return *this;
}

inline Parser& Parser::helpAll(const char* names, const char* group) {
    add<NoValue>(names, "Show the help with all options and exit.", group);
    helpAllName = table->last().names.front();
    return *this;
}

inline std::string Parser::helpText(bool hidden) {
    std::string text = usageText;
    if (!text.empty()) text += "\n\n";
    text += raw->getDescription(false);
    if (hidden) text += raw->getDescription(true);
    return text;
}

inline Outcome Parser::begin(Result into) {
    table->checkDefaults();
    if (into.raw == nullptr) {
        IParseResult* made = nullptr;
        if (raw->createResult(&made) != 0) throw std::bad_alloc();
        into.raw.reset(made);
        into.table = table;
    }
    events->reason.clear();
    return Outcome{std::move(into), 0, {}};
}

inline Outcome Parser::finish(Outcome outcome, int code) {
    outcome.code = code;
    if (code == 0) return outcome;
    // Code 3 sets no error text, and an earlier one may still stand there.
    if (outcome.text.empty())
        outcome.text = code == 3 ? "The arguments cannot be processed." : raw->getErrorDesc();
    if (code == 1 && !events->reason.empty()) outcome.text += ": " + events->reason;
    return outcome;
}

inline Outcome Parser::parse(int argc, const char* const* argv, Result into) {
    Outcome outcome = begin(std::move(into));
    const int code = expandsFiles ? parseWithFiles(argc, argv, outcome) : parseWords(argc, argv, outcome);
    return finish(std::move(outcome), code);
}

inline Outcome Parser::parseText(const char* text, Result into) {
    Outcome outcome = begin(std::move(into));
    const int code = raw->parseStream(text, outcome.result.plain());
    return finish(std::move(outcome), code);
}

/// The library writes nothing to the arguments, though its interface does not say so.
inline int Parser::parseWords(int argc, const char* const* argv, Outcome& outcome) {
    return raw->parseArgsVector(argc, const_cast<char**>(argv), outcome.result.plain());
}

/// Parses the stretches between the files one by one, so that positions follow the command line. What stands
/// in front of a stretch takes the place of the program's name, which is skipped. The first stretch is parsed
/// even if it is empty, since that records the defaults.
inline int Parser::parseWithFiles(int argc, const char* const* argv, Outcome& outcome) {
    std::vector<const char*> words(argv, argv + argc);
    const bool isLogged = argc > 1 && words[1] != nullptr && std::strcmp(words[1], detail::logSwitch) == 0;
    int start = 0;
    for (int i = 1; i < argc; ++i) {
        const char*& word = words[static_cast<std::size_t>(i)];
        if (word == nullptr || std::strcmp(word, "--") == 0) break;
        if (word[0] != '@' || word[1] == '\0') continue;
        int code = parseWords(i - start, words.data() + start, outcome);
        if (code == 0) code = parseFile(word + 1, isLogged, outcome);
        if (code != 0) return code;
        start = i;
        if (isLogged) {
            // The hidden switch turns the log on for one operation only, so it leads every stretch.
            word = words[1];
            start = i - 1;
        }
    }
    return parseWords(argc - start, words.data() + start, outcome);
}

inline int Parser::parseFile(const char* name, bool isLogged, Outcome& outcome) {
    std::string text;
    if (isLogged) text.append(detail::logSwitch).append("\n");
    if (!detail::readResponseFile(name, text, outcome.text)) return 2;
    const int code = raw->parseStream(text.c_str(), outcome.result.plain());
    if (code != 0 && code != 3) {
        outcome.text = detail::joined({"In response file '", name, "': ", raw->getErrorDesc()});
    }
    return code;
}

inline Result Parser::parseOrExit(int argc, const char* const* argv, Result into) {
    if (helpName.empty() && !table->isTaken("help")) help();
    Outcome outcome = parse(argc, argv, std::move(into));
    const auto asksFor = [&outcome](const std::string& name) {
        return !name.empty() && outcome.result.isExplicit(name);
    };
    const bool all = asksFor(helpAllName);
    if (all || asksFor(helpName)) {
        std::fputs(helpText(all).c_str(), stdout);
        std::exit(0);
    }
    if (!outcome) {
        std::string_view program = argc > 0 && argv[0] != nullptr ? argv[0] : "";
        program.remove_prefix(program.rfind('/') + 1);
        std::string message = std::string(program) + ": " + outcome.text + "\n";
        if (!helpName.empty())
            message.append("Try '").append(program).append(" --").append(helpName).append("'.\n");
        std::fputs(message.c_str(), stderr);
        std::exit(2);
    }
    return std::move(outcome.result);
}

}  // namespace vorn_3_1::host

#else

namespace vorn_3_1 {
namespace host {

template <bool isCxx17>
struct CompanionHeader {
    static_assert(isCxx17, "vorn/host.h needs C++17; below it, use vorn/vorn.h");
};
using Parser = CompanionHeader<false>;

}  // namespace host
}  // namespace vorn_3_1

#endif  // C++17

#endif
