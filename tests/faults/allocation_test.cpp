// A host's whole life, with every single allocation failing in turn. Whatever fails has its documented outcome,
// nothing is lost, and the same operation on the same objects then succeeds as if nothing had happened.
#include <locale>
#include <numeric>
#include <utility>

#include "support/fixture.h"
#include "support/heap.h"

namespace vorn_3_1::public_tests {
namespace {

/// Sets a flag as long as it lives.
class Setting {
public:
    Setting(bool& target, bool value) : flag(target), previous(std::exchange(target, value)) {}
    Setting(const Setting&) = delete;
    ~Setting() { flag = previous; }

private:
    bool& flag;
    const bool previous;
};

/// A call into the library; only what is requested in there may fail.
template <class Call>
auto armed(Call call) {
    const Setting arm(memory.isArmed, true);
    return call();
}

template <class Call>
auto undisturbed(Call call) {
    const Setting calm(memory.mayFail, false);
    return call();
}

const char* const longText = "a text that is longer than what a string holds without an allocation";

struct OptionToRegister {
    std::string name;
    const char* furtherNames;
    qel_variant_type_t type;
    variant_t byDefault;
    std::vector<variant_t> allowed;
    const char* group;
};

const char* const general =
    "general:Options whose title is so long that it has to be wrapped in the help text";
const std::vector<OptionToRegister> options = {
    {"flag", ",f,x", qel_bool, true, {}, general},
    {"int", ",i", qel_int, 5, {1, 5, 7}, general},
    {"unsigned", "", qel_uint, 5u, {}, "numbers"},
    {"long", "", qel_int64, -1234567890123456789LL, {}, "numbers"},
    {"hexadecimal", "", qel_uint64, 0xFFULL, {}, "numbers"},
    {"real", ",r", qel_double, 1234567.5, {2.5, 0.5}, "numbers"},
    {"text", ",t", qel_string, "fast", {"fast", "full", longText}, "vorn_hidden:Hidden"},
    {"mode", "", qel_string, longText, {}, general},
    {"none", ",n", qel_empty, {}, {}, ""},
    {"input", "", qel_string, "standard", {}, ""},
    {"list", ",l", qel_string, {}, {}, ""},
};

const Texts lines = {
    "--flag -i 7 --uns=8 --long=-9 --hex=1Fh --real 2.5 --text=fu --text-too a --none -l in -x --no-fl -- "
    "rest -rest",
    "--list=an-item-of-rather-great-length,b, first-input-of-rather-great-length second",
    "vornoption=vornlogenable=1 --int=5 bare-argument -- one -two",
    "--int=5 --in=4",
    "--int=junk",
    "--int=3",
    "--text=f",
    "--text=nothing-that-is-allowed",
    "--list=a,veto",
    "--int=5 --unknown-option-of-rather-great-length",
    "--int",
    "--int --flag",
    "--none=1",
    "--flag=1",
    "--int=7 -- one veto two",
    "--shared=a",
};

class Host final : EventHandler {
public:
    /// The outcomes of an undisturbed life are written down; those of later ones have to be the same.
    explicit Host(Texts& expected) : outcomes(expected) {}

    /// Watched, every builder operation is seen to happen whole or not at all.
    void start(bool watched) {
        isWatched = watched;
        for (const variant_t& value : {variant_t("new"), variant_t(L"new"), variant_t("new", 3)}) {
            variant_t target(7);
            step([&] { return assigned(target, value); }, {"7"});
        }
        step([&] { return made(parser, [&] { return createParser(&parser, 2 | 4 | 8); }); }, {"3 untouched"});
        fallback = parser->option("far,too,many,names", "", qel_int, "");
        for (const OptionToRegister& option : options)
            add(option);
        step([&] { return armed([&] { return parser->addHandler(this); }) ? "added" : "not"; }, {"not"});
    }

    void parse(const Texts& commandLines) {
        for (const std::string& line : commandLines) {
            for (const bool asVector : {true, false}) {
                step([&] { return parseAnew(line, asVector); },
                     {"3 untouched", "3", "4 Unidentified problem detected.",
                      asVector ? "thrown by the default step" : "3"});
            }
        }
        const std::string unread = "--unsigned=" + std::string(10000, 'x');
        parser->parseStream(unread.c_str(), result = nullptr);
        step([&] { return std::string(armed([&] { return parser->getErrorDesc(); })); }, {""});
    }

    void ask() {
        for (const bool hidden : {false, true}) {
            step([&] { return std::string(armed([&] { return parser->getDescription(hidden); })); },
                 {"", "Unknown error handled."});
        }
        parser->createResult(&result);
        undisturbed([&] { return outcomeOf(lines[0], true) + contents(); });
        for (const OptionToRegister& option : options) {
            const char* name = option.name.c_str();
            step([&] { return armed([&] { return result->present(name, 0, INT_MAX); }) ? "is" : "not"; },
                 {"not"});
            const auto values = [&] {
                const Texts all = valuesOf(name);
                return all.back() == "3" ? "3" : joined(all);
            };
            step(values, {"3"});
            step([&] { return shown(armed([&] { return getLastValue(result, name, 0, INT_MAX); })); },
                 undisturbed([&] { return valuesOf(name); }));  // any earlier one
        }
        step([&] { return argumentsOf(); }, {"3"});
        armed([&] { result->destroy(); });
    }

    void end() {
        EXPECT_TRUE(armed([&] { return parser->removeHandler(this); }));
        armed([&] { parser->destroy(); });
    }

private:
    /// Does something. If that took a failure and shows it, it is by one of the given outcomes, and once there
    /// is memory again the same has the outcome of an undisturbed life.
    template <class Attempt>
    void step(Attempt attempt, const Texts& outcomesOfFailure) {
        const unsigned failuresBefore = memory.failures;
        std::string outcome = attempt();
        if (memory.failures > failuresBefore && outcome != outcomes[done]) {
            EXPECT_NE(std::ranges::count(outcomesOfFailure, outcome), 0)
                << "'" << outcome << "' instead of '" << outcomes[done] << "'";
            outcome = undisturbed(attempt);
        }
        if (done == outcomes.size()) outcomes.push_back(outcome);
        EXPECT_EQ(outcome, outcomes[done++]);
    }

    template <class Object, class Maker>
    static std::string made(Object*& object, Maker maker) {
        object = nullptr;
        const int code = armed(maker);
        return std::to_string(code) + (object == nullptr ? " untouched" : " made");
    }

    static std::string assigned(variant_t& target, const variant_t& value) try {
        armed([&] { target = value; });
        return target == value ? "assigned" : "mangled";
    } catch (const std::bad_alloc&) {
        return std::to_string(target.asInt());  // as it was
    }

    std::string registered(const std::string& names, const OptionToRegister& option) {
        builder = armed([&] { return parser->option(names.c_str(), longText, option.type, option.group); });
        return builder == fallback ? "fallback" : "registered";
    }

    void add(const OptionToRegister& option) {
        if (option.name == "list") step([&] { return registered("no-flag", option); }, {});  // is taken
        step([&] { return registered(option.name + option.furtherNames, option); }, {"fallback"});
        help = helpText();
        for (const char* ending : {"-too", "-as-well", "-also"}) {
            const std::string synonym = option.name + ending;
            shape([&] { builder->synonym(synonym.c_str()); });
        }
        for (const variant_t& value : option.allowed)
            shape([&] { builder->allowValue(value); });
        if (option.byDefault.kind() != qel_empty) shape([&] { builder->defaultValue(option.byDefault); });
        if (option.name == "input" || option.name == "mode") shape([&] { builder->synonym("shared"); });
        if (option.name == "input") shape([&] { builder->positional(); });
    }

    template <class Operation>
    void shape(Operation operation) {
        step([&] { return armed(operation), helpText(); }, {help});
        help = helpText();
    }

    std::string helpText() {
        if (!isWatched) return "";
        return std::string(parser->getDescription(false)) + parser->getDescription(true);
    }

    std::string parseAnew(const std::string& line, bool asVector) {
        const std::string creation = made(result, [&] { return parser->createResult(&result); });
        if (result == nullptr) return creation;
        events.clear();
        const std::string outcome = outcomeOf(line, asVector);
        const std::string found = contents();  // can be read after a failure, too
        armed([&] { result->destroy(); });
        return outcome[0] < '3' ? outcome + events + found : outcome;
    }

    std::string outcomeOf(std::string line, bool asVector) {
        const bool endsInArguments = line.find(" -- ") != std::string::npos;
        std::vector<char*> argv{nullptr, line.data()};
        for (char& character : line) {
            if (character != ' ') continue;
            character = asVector ? '\0' : '\n';
            argv.push_back(&character + 1);
        }
        try {
            const int code = armed([&] {
                return asVector ? parser->parseArgsVector(static_cast<int>(argv.size()), argv.data(), result)
                                : parser->parseStream(line.c_str(), result);
            });
            EXPECT_TRUE(code != 3 || events.empty() || endsInArguments);  // the recognisers' code is 4
            return code == 0 || code == 3 ? std::to_string(code)
                                          : std::to_string(code) + " " + parser->getErrorDesc();
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(asVector && events.empty());
            return "thrown by the default step";
        }
    }

    // Events. What is done inside them may fail, too, and is not to end the parse.
    bool onOptionParse(const char* name) override {
        armed([&] { builder->tokenize(','); });  // the list's, which may be the one that is parsed
        if (result != nullptr) armed([&] { result->present("mode", 0, INT_MAX); });
        const Setting own(memory.isArmed, false);
        events += std::string(" ") + name;
        return true;
    }
    bool onValueParse(const char*, const Value& value) override {
        const Setting own(memory.isArmed, false);
        events += std::string("=") + value.text;
        return value.text != std::string("veto");
    }

    // Queries.

    std::string shown(const Value& value) {
        if (value.status != 0) return std::to_string(value.status);
        if (base == 0) base = value.position;
        const char* typed = value.value.asString();
        return std::string(" ") + (value.text == nullptr ? "(null)" : value.text) + " " +
               std::to_string(value.position - base) + " " + std::to_string(value.value.kind()) + " " +
               (typed == nullptr ? std::to_string(value.value.asDouble()) : typed);
    }

    Texts valuesOf(const char* name) {
        Texts values = {shown(armed([&] { return result->get(name, 0, INT_MAX); }))};
        while (values.back().size() > 1)
            values.push_back(shown(armed([&] { return result->next(name); })));
        return values;
    }

    static std::string joined(const Texts& texts) {
        return std::accumulate(texts.begin(), texts.end(), std::string());
    }

    std::string argumentsOf() {
        std::string all;
        const char* text = nullptr;
        int code = armed([&] { return result->getFirstArgument(&text); });
        for (; code == 0; code = armed([&] { return result->getNextArgument(&text); }))
            all += std::string(" ") + text;
        return code == 3 ? "3" : all;
    }

    std::string contents() {
        const Setting calm(memory.mayFail, false);
        base = 0;
        std::string all = argumentsOf();
        for (const OptionToRegister& option : options)
            all += joined(valuesOf(option.name.c_str())) + joined(valuesOf((option.name + "-too").c_str()));
        return all;
    }

    Texts& outcomes;
    std::size_t done = 0;
    IParser* parser = nullptr;
    IOption* fallback = nullptr;
    IOption* builder = nullptr;
    IParseResult* result = nullptr;
    bool isWatched = false;
    std::string help;  // before a builder operation
    std::string events;
    int base = 0;  // of the positions shown: the first one found; 0 until then
};

void parseAll(Texts& outcomes, const Texts& commandLines) {
    Host host(outcomes);
    undisturbed([&] { host.start(false); });
    host.parse(commandLines);
    host.ask();
    host.end();
}

}  // namespace

TEST(AllocationFailure, inARegistrationHasItsDocumentedOutcomeAndPasses) {
    failEachAllocation([](Texts& outcomes) {
        Host host(outcomes);
        host.start(true);
        undisturbed([&] { host.parse({lines[0]}); });
        host.end();
    });
}

TEST(AllocationFailure, inAParseOrQueryHasItsDocumentedOutcomeAndPasses) {
    failEachAllocation([](Texts& outcomes) { parseAll(outcomes, lines); });
}

TEST(AllocationFailure, isNotMistakenForABadNumberUnderAnotherLocale) {
    struct Grouping : std::numpunct<char> {
        std::string do_grouping() const override { return "\3"; }
    };
    // The second one has names of several kinds, which take memory to be put together.
    for (const std::locale& other : {std::locale(std::locale::classic(), new Grouping),
                                     std::locale(std::locale::classic(), "C.utf8", std::locale::numeric)}) {
        const std::locale before = std::locale::global(other);
        failEachAllocation([](Texts& outcomes) { parseAll(outcomes, {lines[0], lines[1]}); });
        std::locale::global(before);
    }
}

}  // namespace vorn_3_1::public_tests
