// A host's life out of a readable script, checked against what holds for every script. A line is an argument, unless
// it begins with '@', which is done at once, or with '!', which is done inside the next event of an actor:
//
//     @F 18                           flags, on the first line only
//     @O 12 out,o|text|group:title    registers an option of type 12; '^' in the text is a line feed
//     @s @a @d @t @p                  its synonym, allowed value, default value, separator, positional flag
//     @+ 1  @- 1  !v  !x              adds (or, when it is there, removes) an actor, removes it; vetoes, throws
//     @> @<                           parses the arguments since the last parse, as a vector or as a text
//     @? 3 7                          queries between two positions, counted from the first one shown
#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

#include "support/plain_rules.h"
#include "vorn/vorn.h"

using namespace vorn_3_1;
using vorn_tests::require;
using vorn_tests::Texts;

namespace {

const char* const logSwitch = "vornoption=vornlogenable=1";

struct Known {
    Texts names;
    int type = 0;
    bool isPositional = false;
    bool isLate = false;  // got a synonym after a parse, and earlier occurrences do not stand under it

    bool answersTo(const std::string& name) const {
        return std::ranges::any_of(names, [&](const std::string& own) {
            return own == name || (type == tamsu2::qel_bool && "no-" + own == name);
        });
    }
};

struct Given {
    std::size_t occurrences = 0;
    std::vector<int> values;  // their positions
};

tamsu2::variant_t valueFrom(const std::string& text) {
    char* rest = nullptr;
    const long kind = std::strtol(text.c_str(), &rest, 10);
    if (*rest == ' ') ++rest;
    if (kind == tamsu2::qel_bool) return *rest == '1';
    if (kind == tamsu2::qel_int) return static_cast<int>(std::strtol(rest, nullptr, 0));
    if (kind == tamsu2::qel_uint64) return std::strtoull(rest, nullptr, 0);
    if (kind == tamsu2::qel_double) return std::strtod(rest, nullptr);
    if (kind == tamsu2::qel_string) return rest;
    if (kind == tamsu2::qel_string_ref) return tamsu2::variant_t::borrowed("borrowed");
    if (kind == tamsu2::qel_block) return {rest, static_cast<std::uint32_t>(std::strlen(rest))};
    return {};
}

bool fits(int code, const std::string& error) {
    if (code == 1) return error.starts_with("Value '");
    if (code == 4) return error == "Unidentified problem detected.";
    return code == 3 || error.starts_with("Unknown option: ") || error.starts_with("Ambiguous option '") ||
           error.starts_with("Option '") || error.starts_with("Value validation problem in argument '");
}

/// One run of a script. It is the first handler itself, and sees every event before the actors do.
class Session : public EventHandler {
public:
    /// A watched session is recorded; another one has the log on instead, which must make no difference.
    Session(const Texts& script, bool watched) : isWatched(watched) {
        if (script[0].starts_with("@F")) flags = std::atoi(script[0].c_str() + 2);
        require(createParser(&parser, flags) == 0 && parser->createResult(&result) == 0, "objects are made");
        builder = fallback = parser->option("a,b,c,d", "", tamsu2::qel_empty, "");
        if (isWatched) parser->addHandler(this);
        for (Actor& actor : actors)
            actor.session = this;
        for (const std::string& line : script) {
            if (line.starts_with("!")) inEvents.push_back(line.substr(1));
        }
        for (const std::string& line : script) {
            if (line.starts_with("@")) act(line.substr(1));
            if (!line.starts_with("@") && !line.starts_with("!")) arguments.push_back(line);
        }
        parse(false);
        checkHelp(false);
        checkHelp(true);
        inEvents.clear();
        for (const std::string& argument : isWatched ? allArguments : Texts())
            checkMatching(argument);
    }
    Session(const Session&) = delete;
    ~Session() {
        parser->destroy();
        result->destroy();
    }

    std::ostringstream report;  // what every host sees; positions count from the first one

    bool onOptionParse(const char* name) override {
        commit();
        events.push_back(std::string(":") + name);
        announced = name;
        isAnnounced = true;
        return true;
    }
    bool onValueParse(const char* name, const Value& value) override {
        require(value.status == 0 && value.as<const char*>() == value.text, "an event's value is one");
        require(value.position > lastPosition, "positions rise");
        require(isAnnounced && announced == name, "a value belongs to the option announced last", name);
        lastPosition = value.position;
        pending.push_back(value.position);
        return true;
    }
    bool onUknownArgument(const char* argument) override {
        commit();
        events.push_back(std::string("?") + argument);
        return true;
    }

private:
    struct Actor : EventHandler {
        Session* session = nullptr;
        bool onOptionParse(const char*) override { return session->actNext(); }
        bool onValueParse(const char*, const Value&) override { return session->actNext(); }
        bool onUknownArgument(const char*) override { return session->actNext(); }
    };

    // Takes the occurrence announced last as stored.
    void commit() {
        if (isAnnounced) {
            Given& all = given[announced];
            ++all.occurrences;
            all.values.insert(all.values.end(), pending.begin(), pending.end());
        }
        isAnnounced = false;
        pending.clear();
    }

    bool actNext() {
        if (inEvents.empty()) return true;
        const std::string line = inEvents.front();
        inEvents.pop_front();
        if (line.starts_with("x")) {
            hasThrown = true;
            throw std::runtime_error("thrown by a handler");
        }
        act(line);
        return !line.starts_with("v");
    }

    void act(const std::string& line) {
        const std::string text = line.size() > 2 ? line.substr(2) : "";
        Actor& actor = actors[static_cast<unsigned char>(text.c_str()[0]) % 3];
        const char action = line.c_str()[0];
        if (action == 'O') registerOption(text);
        if (action == 's') addSynonym(text);
        if (action == 'a') builder->allowValue(valueFrom(text));
        if (action == 'd') builder->defaultValue(valueFrom(text));
        if (action == 't') builder->tokenize(text.c_str()[0]);
        if (action == 'p' && builder->positional() != fallback) options.back().isPositional = true;
        if (action == '+' && !parser->addHandler(&actor))
            require(parser->removeHandler(&actor), "it was there");
        if (action == '-' && parser->removeHandler(&actor))
            require(!parser->removeHandler(&actor), "it is gone");
        if ((action == '>' || action == '<') && !isParsing) parse(action == '<');
        int low = 0;
        int high = 0;
        if (action == '?' && std::sscanf(text.c_str(), "%9d %9d", &low, &high) == 2)
            query(low + origin, high + origin);
    }

    void registerOption(const std::string& text) {
        char* rest = nullptr;
        Known option;
        option.type = static_cast<int>(std::strtoul(text.c_str(), &rest, 10) % 18);
        std::istringstream fields(*rest == ' ' ? rest + 1 : rest);
        std::string names, description, group;
        std::getline(std::getline(std::getline(fields, names, '|'), description, '|'), group, '|');
        std::replace(description.begin(), description.end(), '^', '\n');
        builder = parser->option(names.c_str(), description.c_str(),
                                 static_cast<tamsu2::qel_variant_type_t>(option.type), group.c_str());

        option.names = vorn_tests::split(names, ',');
        const std::size_t count = option.names.size();
        bool isRefused = count > 3 || (count == 3 && option.names[2].size() > 2);
        for (const std::string& name : option.names)
            isRefused = isRefused || std::ranges::any_of(
                                         options, [&](const Known& other) { return other.answersTo(name); });
        require((builder == fallback) == isRefused, "names are refused by the rules", names);
        if (!isRefused) options.push_back(option);
        groups.push_back(group.substr(0, group.find(':')));
    }

    void addSynonym(const std::string& name) {
        builder->synonym(name.c_str());
        if (builder == fallback) return;
        options.back().names.push_back(name);
        options.back().isLate = options.back().isLate || hasParsed;
    }

    void parse(bool asText) {
        const std::string before = parser->getErrorDesc();
        allArguments.insert(allArguments.end(), arguments.begin(), arguments.end());
        std::string text;
        for (const std::string& argument : arguments)
            text += argument + "\n";
        if (!isWatched && text.find(logSwitch) == text.npos) {
            arguments.insert(arguments.begin(), logSwitch);
            text.insert(0, std::string(logSwitch) + "\n");
        }
        hasThrown = false;
        hasParsed = isParsing = true;
        const int code = asText ? parser->parseStream(text.c_str(), result) : parseVector(arguments, result);
        isParsing = false;
        arguments.clear();
        const std::string error = parser->getErrorDesc();
        require(code == 0 ? error == before : code > 0 && code < 5 && fits(code, error),
                "code and error text agree", std::to_string(code) + " " + error);
        // The occurrence that failed is announced and not stored.
        if (code != 0 && (error.starts_with("Value ") || hasThrown)) isAnnounced = false;
        commit();
        report << code << ' ' << error << '\n';
        query(0, INT_MAX);
    }

    int parseVector(Texts list, IParseResult* target) {
        list.insert(list.begin(), "host");
        std::vector<char*> argv;
        for (std::string& argument : list)
            argv.push_back(argument.data());
        return parser->parseArgsVector(static_cast<int>(argv.size()), argv.data(), target);
    }

    void query(int low, int high) {
        const auto number = [this](int position) {
            return position - (origin = origin == 0 ? position : origin);
        };
        for (const Known& option : options) {
            for (const std::string& name : option.names) {
                report << name << result->present(name.c_str(), low, high);
                int at = INT_MAX;
                Value value = result->get(name.c_str(), low, high);
                for (; value.status == 0; value = result->next(nullptr)) {
                    at = value.position;
                    report << " [" << (value.text == nullptr ? "" : value.text) << "] " << number(at);
                }
                require(getLastValue(result, name.c_str(), low, high).position == at, "the last is last");
                report << '\n';
                const bool isComplete = !option.isLate || &name == &option.names[0];
                if (isWatched && !isParsing && isComplete && !isShared(option)) checkStored(option, name);
            }
        }
        const char* text = nullptr;
        for (int code = result->getFirstArgument(&text); code == 0; code = result->getNextArgument(&text))
            report << '<' << text << ">\n";
    }

    // Names that stand for several options, or twice for one, hold more or less than the option was given.
    bool isShared(const Known& option) const {
        std::multiset<std::string> uses;
        for (const Known& other : options) {
            for (const std::string& name : other.names)
                uses.insert(name.c_str());
        }
        return std::ranges::any_of(option.names,
                                   [&](const std::string& name) { return uses.count(name.c_str()) > 1; });
    }

    void checkStored(const Known& option, const std::string& name) {
        const Given& expected = given[option.names[0]];
        if (expected.occurrences == 0 || name == std::string(1, '\0')) return;
        std::vector<int> occurrences, values;
        require(result->present(name.c_str()), "what was given is found by every name", name);
        for (int at = result->nextPosition(); at != INT_MAX; at = result->nextPosition())
            occurrences.push_back(at);
        for (Value value = result->get(name.c_str()); value.status == 0; value = result->next(""))
            values.push_back(value.position);
        require(occurrences.size() == expected.occurrences, "every occurrence is kept", name);
        require(values == (expected.values.empty() ? occurrences : expected.values), "every value is kept",
                name);
        const bool areRising =
            std::ranges::adjacent_find(occurrences, std::greater_equal()) == occurrences.end();
        require(areRising, "positions rise", name);
    }

    void checkHelp(bool hidden) {
        const std::string help = parser->getDescription(hidden);
        report << help;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) {
            const bool isDescription = line.starts_with(std::string(30, ' '));
            require(line.size() <= (isDescription ? 79 : 80) || line.starts_with("-") ||
                        std::count(groups.begin(), groups.end(), line) > 0,
                    "help keeps its width", line);
        }
    }

    // Which option a rehearsal takes the argument for.
    void checkMatching(const std::string& argument) {
        if (argument.size() < 2 || argument[0] != '-' || argument == "--") return;
        const std::size_t hyphens = argument.size() > 2 && argument[1] == '-' ? 2 : 1;
        const std::string typed = argument.substr(0, argument.find('=')).substr(hyphens);
        Texts candidates;
        for (const Known& option : options) {
            for (const std::string& name : option.names) {
                candidates.push_back(name);
                if (option.type == tamsu2::qel_bool) candidates.push_back("no-" + name);
            }
        }
        const Texts best = vorn_tests::bestMatches(typed, candidates);
        events.clear();
        const int code = parseVector({argument}, nullptr);
        const std::string error = parser->getErrorDesc();
        const std::string event = events.empty() ? "" : events[0];
        if (best.size() > 1) {
            const std::string expected = vorn_tests::tieError(typed, argument, best);
            require(code == 2 && error == expected.c_str() && events.empty(), "ties are reported", expected);
            return;
        }
        const auto taker = std::ranges::find_if(options, [&](const Known& option) {
            if (best.empty()) return option.isPositional && (flags & hyphenNotPositional) == 0;
            return option.answersTo(best[0]);
        });
        if (taker == options.end()) {
            require(event == "?" + argument && code == (flags & unknownIsError), "nobody takes it", argument);
        } else if (taker->names.empty()) {
            require(code == 4, "a nameless option cannot be announced");
        } else {
            const std::string name = taker->names[0];
            require(event == ":" + name || (event.empty() && error.starts_with("Option '" + name)),
                    "the best match takes it", argument + " not taken by " + name);
        }
    }

    const bool isWatched;
    int flags = 0;
    int origin = 0;  // the first position that a query has shown
    IParser* parser = nullptr;
    IParseResult* result = nullptr;
    IOption* builder = nullptr;
    IOption* fallback = nullptr;
    Actor actors[3];
    std::deque<std::string> inEvents;
    std::vector<Known> options;
    Texts groups, arguments, allArguments, events;
    bool hasParsed = false;
    bool isParsing = false;
    bool hasThrown = false;
    bool isAnnounced = false;  // an occurrence that is not yet known to be stored
    std::string announced;
    std::vector<int> pending;
    std::map<std::string, Given> given;  // by first name
    int lastPosition = 0;
};

struct Sink : std::streambuf {
    int overflow(int character) override { return character; }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Sink sink;
    static const auto quiet = std::make_pair(std::cout.rdbuf(&sink), std::cerr.rdbuf(&sink));
    static_cast<void>(quiet);
    Texts script(1);
    std::istringstream lines(std::string(data, data + size));
    for (std::string line; std::getline(lines, line);)
        script.push_back(line.c_str());
    if (script.size() > 1) script.erase(script.begin());
    const Session watched(script, true);
    const Session logged(script, false);
    require(watched.report.str() == logged.report.str(), "two parsers alike behave alike",
            watched.report.str() + "---\n" + logged.report.str());
    return 0;
}
