// A host's life out of a readable script, checked against what holds for every script. A line is an argument, unless
// it begins with '@', which is done at once, or with '!', which is done inside the next event of an actor:
//
//     @F 18                           flags, on the first line only
//     @T 2                            a kept table instead, to which nothing is added; on the first line only
//     @O 12 out,o|text|group:title    registers an option of type 12; '^' in the text is a line feed
//     @s @a @d @t @p                  its synonym, allowed value, default value, separator, positional flag
//     @+ 1  @- 1  !v  !x              adds (or, when it is there, removes) an actor, removes it; vetoes, throws
//     @> @<                           parses the arguments since the last parse, as a vector or as a text
//     @? 3 7                          queries between two positions, counted from the first value
//     @h  @h 1                        asks for help, for the hidden one
//
// Making a parser costs more than parsing a few arguments, so kept tables are used many times over.
#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
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

struct Known {
    Texts names;
    int type = 0;
    bool isPositional = false;
    bool isLate = false;  // got a synonym after a parse, and earlier occurrences do not stand under it
};

struct Given {
    std::size_t occurrences = 0;
    std::vector<int> values;  // their positions
};

tamsu2::variant_t valueFrom(const char* text) {
    char* rest = nullptr;
    const long kind = std::strtol(text, &rest, 10);
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

using Lines = std::vector<const char*>;

/// What stands behind an action and a blank.
const char* textOf(const char* line) { return line[0] != '\0' && line[1] != '\0' ? line + 2 : ""; }

bool fits(int code, const std::string& error) {
    if (code == 1) return error.starts_with("Value '");
    if (code == 4) return error == "Unidentified problem detected.";
    return code == 3 || error.starts_with("Unknown option: ") || error.starts_with("Ambiguous option '") ||
           error.starts_with("Option '") || error.starts_with("Value validation problem in argument '");
}

/// A parser with its declarations, and what the rules say about them.
class Table {
public:
    explicit Table(int bits) : flags(bits) {
        require(createParser(&parser, flags) == 0, "a parser is made");
        builder = fallback = parser->option("a,b,c,d", "", tamsu2::qel_empty, "");
    }
    Table(const Table&) = delete;
    ~Table() { parser->destroy(); }

    void declare(const char* line) {
        const char* const text = textOf(line);
        const char action = *line;
        if (action == 'O') registerOption(text);
        if (action == 's') addSynonym(text);
        if (action == 'a') builder->allowValue(valueFrom(text));
        if (action == 'd') builder->defaultValue(valueFrom(text));
        if (action == 't') builder->tokenize(*text);
        if (action == 'p' && builder->positional() != fallback) options.back().isPositional = true;
    }

    // Names that stand for several options, or twice for one, hold more or less than the option was given.
    bool isShared(const Known& option) const {
        return std::ranges::any_of(option.names,
                                   [&](const std::string& name) { return uses.count(name.c_str()) > 1; });
    }

    const int flags;
    IParser* parser = nullptr;
    std::vector<Known> options;
    bool hasParsed = false;

private:
    void registerOption(const char* text) {
        char* rest = nullptr;
        Known option;
        option.type = static_cast<int>(std::strtoul(text, &rest, 10) % 18);
        std::string fields = *rest == ' ' ? rest + 1 : rest;
        const std::string names = vorn_tests::cutAt('|', fields);
        std::string description = vorn_tests::cutAt('|', fields);
        const std::string group = vorn_tests::cutAt('|', fields);
        std::replace(description.begin(), description.end(), '^', '\n');
        builder = parser->option(names.c_str(), description.c_str(),
                                 static_cast<tamsu2::qel_variant_type_t>(option.type), group.c_str());

        option.names = vorn_tests::split(names, ',');
        const std::size_t count = option.names.size();
        bool isRefused = count > 3 || (count == 3 && option.names[2].size() > 2);
        for (const std::string& name : option.names)
            isRefused = isRefused || taken.count(name) > 0;
        require((builder == fallback) == isRefused, "names are refused by the rules", names);
        if (!isRefused) options.push_back(option);
        for (const std::string& name : isRefused ? Texts() : option.names)
            take(name);
    }

    void addSynonym(const char* name) {
        builder->synonym(name);
        if (builder == fallback) return;
        options.back().names.push_back(name);
        take(name);
        options.back().isLate = options.back().isLate || hasParsed;
    }

    /// For the option declared last.
    void take(const std::string& name) {
        uses.insert(name.c_str());
        taken.insert(name);
        if (options.back().type == tamsu2::qel_bool) taken.insert("no-" + name);
    }

    IOption* builder = nullptr;
    IOption* fallback = nullptr;
    std::multiset<std::string> uses;  // of every name
    std::set<std::string> taken;      // the same, with the "no-" forms
};

/// Flags, and declarations.
const char* const keptTables[] = {
    R"(8
O 12 output-file,o|Where to write. Without it, the name of the first input with another extension.|general:General
O 12 output-dir|Folder.^Made when missing.|general
O 0 verbose,v|Says more.|general
O 0 version|Shows the version and ends.|general
O 9 base-address|Where the image is loaded.|link:Linking
O 11 scale|Factor.|link
a 11 2.0
a 6 4
O 8 limit||link
t )",
    R"(6
O 12 |Has no name.|
O 6 input|A number.|
p
O 0 a,a|Twice the same name.|
O 17 quiet,q|Says nothing.|
O 16 block|No conversion.|g
O 8 wide,w|64 bits.|
O 7 small,s||)",
};

constexpr std::size_t keptCount = std::size(keptTables);

/// Which kept table the script begins with; keptCount for none.
std::size_t keptNumber(const char* firstLine) {
    if (std::strncmp(firstLine, "@T", 2) != 0) return keptCount;
    return static_cast<unsigned>(std::atoi(firstLine + 2)) % keptCount;
}

std::unique_ptr<Table> makeTable(const char* firstLine) {
    const std::size_t number = keptNumber(firstLine);
    std::string declarations = std::strncmp(firstLine, "@F", 2) == 0 ? firstLine + 2 : "0";
    if (number < keptCount) declarations = keptTables[number];
    auto table = std::make_unique<Table>(std::atoi(vorn_tests::cutAt('\n', declarations).c_str()));
    while (!declarations.empty())
        table->declare(vorn_tests::cutAt('\n', declarations).c_str());
    return table;
}

/// The table that a script begins with. Kept ones are made again now and then, since parsers keep every text of an
/// error.
Table& tableFor(const char* firstLine) {
    constexpr unsigned mostUses = 1000;
    static std::unique_ptr<Table> tables[keptCount + 1];
    static unsigned uses = 0;
    const std::size_t number = keptNumber(firstLine);
    std::unique_ptr<Table>& table = tables[number];
    if (table == nullptr || number == keptCount || ++uses % mostUses == 0) table = makeTable(firstLine);
    return *table;
}

/// One run of a script. It is the first handler itself, and sees every event before the actors do.
class Session : public EventHandler {
public:
    Session(const Lines& script, Table& declared)
        : isKept(keptNumber(script[0]) < keptCount), table(declared), parser(declared.parser) {
        require(parser->createResult(&result) == 0, "a result is made");
        parser->addHandler(this);
        for (Actor& actor : actors)
            actor.session = this;
        for (const char* line : script) {
            if (*line == '!') inEvents.push_back(line + 1);
        }
        for (const char* line : script) {
            if (*line == '@') act(line + 1);
            if (*line != '@' && *line != '!') arguments.push_back(line);
        }
        parse(false);
        checkStored();
    }
    Session(const Session&) = delete;
    ~Session() {
        parser->removeHandler(this);
        for (Actor& actor : actors)
            parser->removeHandler(&actor);
        result->destroy();
    }

    bool onOptionParse(const char* name) override {
        commit();
        announced = name;
        isAnnounced = true;
        return true;
    }
    bool onValueParse(const char* name, const Value& value) override {
        require(value.status == 0 && value.as<const char*>() == value.text, "an event's value is one");
        require(value.position > lastPosition, "positions rise");
        require(isAnnounced && announced == name, "a value belongs to the option announced last", name);
        lastPosition = value.position;
        if (origin == 0) origin = lastPosition;
        pending.push_back(value.position);
        return true;
    }
    bool onUknownArgument(const char*) override {
        commit();
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
        if (nextInEvents >= inEvents.size()) return true;
        const char* const line = inEvents[nextInEvents++];
        if (*line == 'x') {
            hasThrown = true;
            throw std::runtime_error("thrown by a handler");
        }
        act(line);
        return *line != 'v';
    }

    void act(const char* line) {
        const char* const text = textOf(line);
        Actor& actor = actors[static_cast<unsigned char>(*text) % 3];
        const char action = *line;
        if (!isKept) table.declare(line);
        if (action == '+' && !parser->addHandler(&actor))
            require(parser->removeHandler(&actor), "it was there");
        if (action == '-' && parser->removeHandler(&actor))
            require(!parser->removeHandler(&actor), "it is gone");
        if ((action == '>' || action == '<') && !isParsing) parse(action == '<');
        if (action == 'h') parser->getDescription(*text == '1');
        int low = 0;
        int high = 0;
        if (action == '?' && std::sscanf(text, "%9d %9d", &low, &high) == 2)
            query(low + origin, high + origin);
    }

    void parse(bool asText) {
        const std::string before = parser->getErrorDesc();
        std::string text;
        for (const char* argument : arguments)
            text.append(argument).append("\n");
        hasThrown = false;
        table.hasParsed = isParsing = true;
        const int code = asText ? parser->parseStream(text.c_str(), result) : parseVector();
        isParsing = false;
        arguments.clear();
        const std::string error = parser->getErrorDesc();
        require(code == 0 ? error == before : code > 0 && code < 5 && fits(code, error),
                "code and error text agree", std::to_string(code) + " " + error);
        // The occurrence that failed is announced and not stored.
        if (code != 0 && (error.starts_with("Value ") || hasThrown)) isAnnounced = false;
        commit();
    }

    int parseVector() {
        char host[] = "host";
        std::vector<char*> argv{host};
        for (const char* argument : arguments)
            argv.push_back(const_cast<char*>(argument));
        return parser->parseArgsVector(static_cast<int>(argv.size()), argv.data(), result);
    }

    void query(int low, int high) {
        for (const Known& option : table.options) {
            for (const std::string& name : option.names) {
                int last = INT_MAX;
                Value value = result->get(name.c_str(), low, high);
                for (; value.status == 0; value = result->next(nullptr))
                    last = value.position;
                require(getLastValue(result, name.c_str(), low, high).position == last, "the last is last");
            }
        }
    }

    void checkStored() {
        for (const Known& option : table.options) {
            if (table.isShared(option)) continue;
            for (const std::string& name : option.names) {
                if (!option.isLate || &name == &option.names[0]) checkStored(option, name);
            }
        }
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

    const bool isKept;
    Table& table;
    IParser* const parser;
    IParseResult* result = nullptr;
    int origin = 0;  // the first position of a value
    Actor actors[3];
    Lines inEvents, arguments;
    std::size_t nextInEvents = 0;
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
    std::string text(data, data + size);
    Lines script{text.c_str()};
    for (char& character : text) {
        if (character != '\n') continue;
        character = '\0';
        script.push_back(&character + 1);
    }
    if (*script.back() == '\0' && script.size() > 1) script.pop_back();
    const Session session(script, tableFor(script[0]));
    return 0;
}
