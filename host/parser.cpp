// The parser as a host sees it. The operations that declare write into the table, and refuse to while a parse goes on;
// parse hands the arguments to detail::Parse, and makes an Outcome of what it leaves behind.
//
//     parser.parse({"--qu=5", "a.png"})    texts, numbered 1 and 2 -> Parse::run -> errors, advice, Result
//
// Go on with parse.cpp for what a parse does, with table.cpp for what declarations are checked for, and with exit.cpp
// for parseOrExit.
#include "vorn/host/parser.h"

#include <stdexcept>

#include "parse.h"
#include "process_environment.h"
#include "result_data.h"
#include "shown_text.h"
#include "table.h"

namespace vorn_3_1::host {

namespace {

/// While it lives, no other parse of the parser can begin.
class Busy {
public:
    explicit Busy(detail::Table& busy) : table(busy) {
        if (table.isBusy) {
            throw std::logic_error(
                "vorn: the parser is parsing already; a check must not parse with the same parser");
        }
        table.isBusy = true;
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { table.isBusy = false; }

private:
    detail::Table& table;
};

std::vector<detail::Argument> numbered(std::vector<std::string> texts) {
    std::vector<detail::Argument> arguments;
    arguments.reserve(texts.size());
    for (std::string& text : texts) {
        if (std::string_view(text).find('\0') != std::string_view::npos) {
            throw std::invalid_argument("vorn: an argument holds a NUL character, which no command line can");
        }
        arguments.push_back({std::move(text), 0, static_cast<int>(arguments.size() + 1)});
    }
    return arguments;
}

}  // namespace

namespace detail {

std::vector<std::string> textsOf(int argc, const char* const* argv) {
    std::vector<std::string> texts;
    if (argc > 0 && argv == nullptr) throw std::invalid_argument("vorn: argv is null");
    if (argc > 1) texts.reserve(static_cast<std::size_t>(argc) - 1);
    for (int i = 1; i < argc; ++i) {
        if (argv[i] == nullptr) throw std::invalid_argument("vorn: an element of argv is null");
        texts.emplace_back(argv[i]);
    }
    return texts;
}

}  // namespace detail

Parser::Parser(Text program, Text description)
    : table(new detail::Table(program, description, nullptr)), isOwner(true) {}

Parser::Parser(detail::Table& command) : table(&command), isOwner(false) {}

Parser::Parser(Parser&& other) noexcept
    : table(std::exchange(other.table, nullptr)), isOwner(std::exchange(other.isOwner, false)) {}

Parser& Parser::operator=(Parser&& other) noexcept {
    std::swap(table, other.table);
    std::swap(isOwner, other.isOwner);
    return *this;
}

Parser::~Parser() {
    if (isOwner) detail::release(table);
}

detail::Declaration Parser::declare(Text names, Text description, detail::What what,
                                    const detail::TypeFacts& type) {
    table->refuseWhileBusy();
    return {*table, table->enter(names, description, what, type)};
}

Parser& Parser::command(Text names, Text description) {
    table->refuseWhileBusy();
    return table->enterCommand(names, description).self;
}

Parser& Parser::group(Text title) {
    table->refuseWhileBusy();
    table->group = table->keep(title);
    return *this;
}

Parser& Parser::exclusive(std::initializer_list<AnyKey> keys) {
    table->refuseWhileBusy();
    table->enterGroup(keys, false);
    return *this;
}

Parser& Parser::oneOf(std::initializer_list<AnyKey> keys) {
    table->refuseWhileBusy();
    table->enterGroup(keys, true);
    return *this;
}

Parser& Parser::version(Text text) {
    table->refuseWhileBusy();
    table->versionText = text;
    ++table->changes;
    return *this;
}

Parser& Parser::epilogue(Text text) {
    table->refuseWhileBusy();
    table->epilogue = text;
    return *this;
}

Parser& Parser::colours(Colours wanted) {
    table->refuseWhileBusy();
    table->colours = wanted;
    return *this;
}

Parser& Parser::completion(Text name) {
    table->refuseWhileBusy();
    table->completionName = name;
    return *this;
}

Parser& Parser::joinedShort() {
    table->refuseWhileBusy();
    table->readsJoinedShort = true;
    return *this;
}

Parser& Parser::responseFiles() {
    table->refuseWhileBusy();
    table->readsResponseFiles = true;
    return *this;
}

Parser& Parser::ignoreUnknown() {
    table->refuseWhileBusy();
    table->ignoresUnknown = true;
    return *this;
}

Parser& Parser::settings(Text path, Missing missing) {
    table->refuseWhileBusy();
    table->settings.push_back({std::string(path), "", false, missing == Missing::allowed});
    return *this;
}

Parser& Parser::settings(Text text, Text name) {
    table->refuseWhileBusy();
    if (text.find('\0') != Text::npos) throw std::invalid_argument("vorn: settings hold a NUL character");
    table->settings.push_back({std::string(text), std::string(name), true, false});
    return *this;
}

Outcome Parser::parse(std::vector<std::string> texts, const detail::Environment& environment) {
    if (table->isCommand()) throw std::logic_error("vorn: a command is parsed by its outermost parser");
    const Busy busy(*table);
    detail::Parse parse(*table, environment);
    parse.run(numbered(std::move(texts)));
    Outcome outcome;
    outcome.mistakes = parse.errors();
    outcome.advice = std::move(parse.findings.advice);
    outcome.asked = parse.findings.asked;
    outcome.all = parse.findings.asksForAll;
    if (parse.findings.askedTable != nullptr) {
        const bool isRoot = parse.findings.askedTable == table;
        outcome.askedParser = isRoot ? this : &parse.findings.askedTable->self;
    }
    outcome.found = Result(parse.data.release());
    return outcome;
}

Outcome Parser::parse(int argc, const char* const* argv, const std::vector<Variable>& environment) {
    return parse(detail::textsOf(argc, argv), detail::GivenEnvironment(environment));
}

Outcome Parser::parse(std::initializer_list<Text> arguments, const std::vector<Variable>& environment) {
    return parse(std::vector<std::string>(arguments.begin(), arguments.end()),
                 detail::GivenEnvironment(environment));
}

Outcome Parser::parse(const std::vector<std::string>& arguments, const std::vector<Variable>& environment) {
    return parse(arguments, detail::GivenEnvironment(environment));
}

void Parser::verify() {
    std::vector<std::string> faults;
    table->collectFaults(faults);
    if (!faults.empty()) throw RegistrationError(detail::listed(faults, "\n"));
}

}  // namespace vorn_3_1::host
