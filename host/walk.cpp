// One turn of the walk looks at the next argument and decides who takes it:
//
//     @args.txt        expandResponseFile, if asked for: the lines of the file stand there instead
//     --               takeTerminator: what follows is positional, or a command
//     a.png   -        takeWord: a command, a positional argument, or one too many
//     --size   -5      takeNamed: asks what it means. An option takes its value; what is unknown may be a negative
//                      number or letters written together (-vq), and is an error otherwise
//
// Each take... moves arguments from `todo` to `done` and adds tokens, or an error. Names are asked for many at a time
// (askAhead), since a rehearsal costs more than a name in it.
#include "walk.h"

#include <algorithm>
#include <utility>

#include "shown_text.h"
#include "sources.h"
#include "text_parts.h"
#include "vorn/host/type.h"

namespace vorn_3_1::host::detail {

namespace {

constexpr std::string_view terminator = "--";

/// Whether the argument could be an option's; a single hyphen is a word like any other.
bool isWord(std::string_view argument) {
    return argument.empty() || argument[0] != '-' || argument.size() == 1;
}

bool isNegativeNumber(std::string_view text) {
    double value = 0.0;
    return text.size() > 1 && text[0] == '-' && Type<double>::read(text, value).empty();
}

bool isResponseFile(std::string_view argument) { return argument.size() > 1 && argument[0] == '@'; }

/// Two names of one option that begin alike mean the same, unless only one of them switches off.
bool meanSame(const std::vector<Meaning>& meanings) {
    return std::all_of(meanings.begin(), meanings.end(), [&first = meanings.front()](const Meaning& meaning) {
        return meaning.kind == Meaning::Kind::found && meaning.table == first.table &&
               meaning.index == first.index && meaning.isOff == first.isOff;
    });
}

}  // namespace

std::string_view nameOf(std::string_view argument) { return argument.substr(0, argument.find('=')); }

std::vector<Meaning> meaningsOf(Library& library, const std::vector<std::string>& names) {
    std::vector<Meaning> meanings = library.ask(names);
    for (Meaning& meaning : meanings) {
        if (meaning.kind != Meaning::Kind::ambiguous) continue;
        std::vector<std::string> forms;
        for (const std::string& candidate : meaning.candidates)
            forms.push_back("--" + candidate);
        if (!meanSame(library.ask({forms[0], forms[1]}))) continue;  // seldom one option, so that two will do
        std::vector<Meaning> each = library.ask(forms);
        if (!meanSame(each)) continue;
        // Reads the full name instead of the typed one.
        each[0].candidates = {forms[0]};
        meaning = std::move(each[0]);
    }
    return meanings;
}

bool canNameOption(std::string_view typed) {
    typed.remove_prefix(typed.substr(0, 2) == "--" ? 2 : 1);
    if (typed.substr(0, 1) == "-") return false;
    return std::any_of(typed.begin(), typed.end(), isLetterOrDigit);
}

void Findings::add(Error error, const Argument& argument, std::size_t order) {
    error.argument = argument.text;
    error.origin = data->origin({0, argument.source, argument.line});
    errors.emplace(order, std::move(error));
}

/// Once for each option.
void Findings::advise(const Record& record) {
    if (!record.isDeprecated || std::find(advised.begin(), advised.end(), &record) != advised.end()) return;
    advised.push_back(&record);
    advice.push_back(deprecationAdvice(record));
}

/// The next argument stands last in `todo`: taking it, or putting the lines of a file in its place, moves no other.
Walk::Walk(Table& walked, Over kind, std::vector<Argument> arguments, std::size_t first, Findings& found)
    : order(first), table(walked), over(kind), findings(found) {
    for (const Record& record : table.records) {
        if (record.isPositional()) wanted.push_back(&record);
    }
    tokens.reserve(arguments.size());
    todo.reserve(arguments.size());
    done.reserve(arguments.size());
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        todo.push_back({std::move(*argument), std::nullopt});
}

/// Ends at a command: what follows is for that command's walk.
void Walk::run() {
    while (!todo.empty() && command == nullptr && !endsEarly) {
        if (expandResponseFile()) continue;
        const std::string& next = todo.back().argument.text;
        if (next == terminator) {
            takeTerminator();
        } else if (isWord(next)) {
            takeWord();
        } else {
            takeNamed();
        }
    }
}

const Argument& Walk::take() {
    done.push_back(std::move(todo.back().argument));
    todo.pop_back();
    return done.back();
}

/// Puts the file's arguments into the place of its name.
bool Walk::expandResponseFile() {
    if (todo.empty()) return false;
    const Argument& next = todo.back().argument;
    if (over != Over::commandLine || !table.has(&Table::readsResponseFiles) || !isResponseFile(next.text))
        return false;
    if (!findings.data->sources[next.source].name.empty()) return false;  // '@' is nothing special inside
    const std::string path = take().text.substr(1);
    std::string text;
    bool isMissing = false;
    if (const std::string reason = readTextFile(path, text, isMissing); !reason.empty()) {
        fail(unreadableFile(path, reason));
        return true;
    }
    std::vector<Argument> lines =
        argumentsIn(text, findings.data->addSource(Origin::Layer::commandLine, path));
    for (auto line = lines.rbegin(); line != lines.rend(); ++line)
        todo.push_back({std::move(*line), std::nullopt});
    return true;
}

/// Behind "--" nothing is an option. A parser without positional arguments gives the texts to the host as they are
/// (Result::arguments); of one with commands, the first is the command.
void Walk::takeTerminator() {
    take();
    if (over != Over::commandLine) return fail(noOptionInSettings(table, terminator));
    isBehindTerminator = true;
    if (!table.commands.empty()) {
        if (!todo.empty()) chooseCommand();
        return;
    }
    while (!todo.empty()) {
        std::string text = take().text;
        if (!wanted.empty()) {
            addPositional(std::move(text));
            continue;
        }
        findings.data->arguments.push_back(text);
        Token& token = tokens.emplace_back();
        token.kind = Token::Kind::passedThrough;
        token.argument = {std::move(text), true};
        token.from = done.size() - 1;
    }
}

/// A parser with commands has no positional arguments, so that its first word is a command.
void Walk::takeWord() {
    if (over != Over::commandLine) {
        const std::string text = take().text;
        return fail(noOptionInSettings(table, text));
    }
    if (!table.commands.empty()) return chooseCommand();
    if (wanted.empty()) {
        const std::string text = take().text;
        if (!table.has(&Table::ignoresUnknown)) fail(unexpectedArgument(text));
        return;
    }
    if (wanted.front()->what == What::rest) return takeRest();
    addPositional(take().text);
}

/// Everything that follows, untouched.
void Walk::takeRest() {
    while (!todo.empty())
        addPositional(take().text);
}

/// The library matches commands as options, in a registration of their own. A typed '=' would end the name there.
void Walk::chooseCommand() {
    const std::string typed = take().text;
    Meaning meaning;
    const bool canName = canNameOption("--" + typed) && typed.find('=') == std::string::npos;
    if (canName) meaning = std::move(meaningsOf(*table.commandLibrary, {"--" + typed})[0]);
    if (meaning.kind == Meaning::Kind::found) {
        command = table.commands[meaning.index].get();
        if (findings.isHelpWord) findings.askedTable = command;
        for (auto next = todo.rbegin(); next != todo.rend(); ++next)
            left.push_back(std::move(next->argument));
        todo.clear();
        return;
    }
    if (meaning.kind == Meaning::Kind::unknown && takeHelpWord(typed)) return;
    if (findings.isHelpWord) {
        findings.asked = Outcome::Asked::nothing;
        findings.askedTable = nullptr;
    }
    endsEarly = true;
    fail(meaning.kind == Meaning::Kind::ambiguous ? ambiguousCommand(typed, meaning)
                                                  : unknownCommand(table, typed));
}

/// "help remote add" is as good as "remote add --help", unless a command answers to the word.
bool Walk::takeHelpWord(std::string_view typed) {
    const NameMeaning* help = typed == "help" && !findings.isHelpWord ? table.find(typed) : nullptr;
    if (help == nullptr || !table.records[help->index].isBuiltIn()) return false;
    findings.isHelpWord = findings.asked == Outcome::Asked::nothing;
    takeBuiltIn(table.records[help->index], table);
    return true;
}

/// The order matters for what the library does not know: "-5" is a number where numbers are wanted, before anyone looks
/// for an option 5 among joined letters; and only what is neither is unknown.
void Walk::takeNamed() {
    const std::string& next = todo.back().argument.text;
    const std::string_view name = nameOf(next);
    if (!canNameOption(name)) {
        take();
        return fail(namesNoOption(nameOf(done.back().text)));
    }
    const Meaning meaning = meaningOfNext();
    if (meaning.kind == Meaning::Kind::unknown && wantsNumber() && isNegativeNumber(next)) {
        return addPositional(take().text);
    }
    if (meaning.kind == Meaning::Kind::unknown && takeJoined(next)) return;
    const std::string typed = take().text;
    const std::string_view typedName = nameOf(typed);
    const bool hasSign = typedName.size() < typed.size();
    const std::string_view value = hasSign ? std::string_view(typed).substr(typedName.size() + 1) : "";
    switch (meaning.kind) {
        case Meaning::Kind::found:
            return takeFound(meaning, typedName, value, hasSign);
        case Meaning::Kind::ambiguous:
            return fail(ambiguousOption(typedName, meaning));
        case Meaning::Kind::unknown:
            break;
    }
    if (!table.has(&Table::ignoresUnknown)) {
        constexpr std::size_t mostHelped = 20;  // whoever reads on has another problem
        if (findings.errors.size() >= mostHelped) return fail(unknownOption(typedName));
        JoinedLetters letters = joinedLetters(typed);
        if (!table.has(&Table::readsJoinedShort)) letters.strange.clear();
        fail(unknownOption(table, typed, letters, over == Over::commandLine));
    }
}

void Walk::takeFound(const Meaning& meaning, std::string_view name, std::string_view value, bool hasSign) {
    const Record& record = meaning.record();
    findings.advise(record);
    if (over == Over::settings && record.isOnlyTyped) return fail(record, onlyOnCommandLine(record));
    if (record.what == What::option) return takeValue(meaning, name, value, hasSign);
    if (hasSign) return fail(record, takesNoValue(record));
    if (record.isBuiltIn()) return takeBuiltIn(record, *meaning.table);
    addOption(meaning, std::string(name));
}

/// What is asked for first counts: "--help --version" shows help.
void Walk::takeBuiltIn(const Record& record, Table& owner) {
    if (over != Over::commandLine) return fail(record, onlyOnCommandLine(record));
    if (findings.asked != Outcome::Asked::nothing) return;
    findings.asked = record.what == What::version ? Outcome::Asked::version : Outcome::Asked::help;
    findings.asksForAll = record.what == What::helpAll;
    findings.askedTable = &owner;
}

/// "--size=5" has its value, "--size" may have an implicit one; otherwise it is the next argument.
void Walk::takeValue(const Meaning& meaning, std::string_view name, std::string_view value, bool hasSign) {
    const Record& record = meaning.record();
    if (hasSign && value.empty()) return fail(record, emptyValue(record, joined({name, "="})));
    if (hasSign) {
        addOption(meaning, joined({name, "=", value}));
    } else if (record.implicit() != nullptr) {
        // The library is to see a value; the reader takes the implicit one.
        addOption(meaning, joined({name, "=", "implicit"})).isImplicit = true;
    } else {
        takeNextAsValue(meaning, name);
    }
}

/// The next argument is the value unless it looks like an option: a value that begins with '-' has to stand behind '='.
/// A negative number is one where a number is wanted, if the library knows no option of that name.
void Walk::takeNextAsValue(const Meaning& meaning, std::string_view name) {
    const Record& record = meaning.record();
    const std::size_t from = done.size() - 1;
    while (expandResponseFile()) {
    }
    if (todo.empty()) {
        waiting = &record;
        return fail(record, needsValue(record), from);
    }
    Pending& next = todo.back();
    const std::string& text = next.argument.text;
    if (text.empty()) return fail(record, emptyValue(record, name), from);
    const bool isValue = isWord(text) || (record.type->isNumber && isUnknownNegativeNumber(next));
    if (!isValue) return fail(record, needsValueThatLooksLikeOption(record, text), from);
    std::string whole = joined({name, "=", text});
    // A person looks for the option, unless its value stands in a file of its own.
    const bool isTogether = take().source == done[from].source;
    addOption(meaning, std::move(whole)).from = isTogether ? from : done.size() - 1;
}

bool Walk::isUnknownNegativeNumber(Pending& next) {
    if (!isNegativeNumber(next.argument.text)) return false;
    return meaningOfNext().kind == Meaning::Kind::unknown;
}

/// The meaning of the next argument, which can name an option.
const Meaning& Walk::meaningOfNext() {
    if (!todo.back().meaning) askAhead();
    return *todo.back().meaning;
}

/// Asks for the next argument and for those behind it in one rehearsal, up to one that has been asked for.
void Walk::askAhead() {
    std::vector<std::string> names;
    std::vector<Pending*> asked;
    names.reserve(todo.size());
    asked.reserve(todo.size());
    for (auto next = todo.rbegin(); next != todo.rend() && !next->meaning; ++next) {
        const std::string& text = next->argument.text;
        const bool isOfOneSource = next->argument.source == todo.back().argument.source;
        if (text == terminator || !isOfOneSource) break;
        if (isWord(text) || !canNameOption(nameOf(text))) continue;
        names.emplace_back(nameOf(text));
        asked.push_back(&*next);
    }
    std::vector<Meaning> meanings = meaningsOf(*table.library, names);
    for (std::size_t i = 0; i < asked.size(); ++i)
        asked[i]->meaning = std::move(meanings[i]);
}

/// -vvq, -j4, -Idir: letter by letter, or not at all.
bool Walk::takeJoined(std::string_view typed) {
    if (!table.has(&Table::readsJoinedShort) || joinedLetters(typed).pieces.empty()) return false;
    const std::string text = take().text;
    std::string_view letters = std::string_view(text).substr(1);
    while (!letters.empty()) {
        const std::string_view letter = letters.substr(0, firstCharacter(letters).length);
        letters.remove_prefix(letter.size());
        const Meaning meaning = *meaningOfLetter(letter);
        const Record& record = meaning.record();
        const std::string name = joined({"-", letter});
        const bool hasSign = letters.substr(0, 1) == "=";
        const bool takesLetters = record.what == What::option && (record.implicit() == nullptr || hasSign);
        const bool isAlone = letters.empty() || !takesLetters;
        if (isAlone && !hasSign) {
            takeFound(meaning, name, "", false);
            continue;
        }
        if (hasSign) letters.remove_prefix(1);
        return takeFound(meaning, name, letters, true), true;
    }
    return true;
}

/// How the letters of "-lw" would be written apart.
JoinedLetters Walk::joinedLetters(std::string_view typed) {
    JoinedLetters joinedOnes;
    std::vector<std::string>& pieces = joinedOnes.pieces;
    if (typed.substr(0, 2) == "--") return joinedOnes;
    std::string_view letters = typed.substr(1);
    while (!letters.empty() && letters[0] != '=') {
        const std::string_view letter = letters.substr(0, firstCharacter(letters).length);
        letters.remove_prefix(letter.size());
        const std::optional<Meaning> meaning = meaningOfLetter(letter);
        if (!meaning) return {{}, pieces.empty() ? std::string() : std::string(letter)};
        pieces.push_back(joined({"-", letter}));
        const bool takesLetters =
            meaning->record().what == What::option && meaning->record().implicit() == nullptr;
        if (!takesLetters || letters.empty()) continue;
        pieces.emplace_back(letters.substr(letters[0] == '=' ? 1 : 0));
        break;
    }
    return joinedOnes;
}

/// The option that has this very letter as a name.
std::optional<Meaning> Walk::meaningOfLetter(std::string_view letter) {
    const std::string typed = joined({"-", letter});
    if (!canNameOption(typed)) return std::nullopt;
    Meaning meaning = std::move(table.library->ask({typed})[0]);
    if (meaning.kind != Meaning::Kind::found) return std::nullopt;
    const std::vector<std::string> names = meaning.record().allNames();
    if (std::find(names.begin(), names.end(), letter) == names.end()) return std::nullopt;
    return meaning;
}

/// Whether the next positional argument may be a number.
bool Walk::wantsNumber() const {
    if (over != Over::commandLine) return false;
    std::size_t before = positionals;
    for (const Record* next : wanted) {
        const Record& record = *next;
        const bool isOne = !record.takesRest && !record.mayBeLeftOut();
        if (isOne && before > 0) {
            --before;
            continue;
        }
        if (record.type->isNumber) return true;
        if (isOne) return false;
        before = 0;  // from here on it depends on how many follow
    }
    return false;
}

/// Candidates of a meaning that was found are the name in full; see meaningsOf.
Token& Walk::addOption(const Meaning& meaning, std::string text) {
    if (!meaning.candidates.empty()) text.replace(0, nameOf(text).size(), meaning.candidates[0]);
    Token& token = tokens.emplace_back();
    token.argument.text = std::move(text);
    token.from = done.size() - 1;
    token.table = meaning.table;
    token.index = meaning.index;
    return token;
}

/// What the library would take for an option, or for the log switch, stands behind the name of the option for positional
/// arguments.
void Walk::addPositional(std::string text) {
    ++positionals;
    const bool isPlain = (text.empty() || text[0] != '-') && text != logSwitch;
    Token& token = tokens.emplace_back();
    token.kind = Token::Kind::positional;
    token.argument.text = isPlain ? text : joined({"--", positionalName, "=", text});
    token.from = done.size() - 1;
    token.table = &table;
    token.positionalText = std::move(text);
}

void Walk::fail(Error error) { findings.add(std::move(error), done.back(), order + done.size() - 1); }

void Walk::fail(const Record& record, Error error) { fail(record, std::move(error), done.size() - 1); }

void Walk::fail(const Record& record, Error error, std::size_t from) {
    findings.refused.push_back(&record);
    findings.add(std::move(error), done[from], order + from);
}

}  // namespace vorn_3_1::host::detail
