// The shortest forms that users may type, as a text to keep with a release; and what a later release takes from them.
//
//     Parser::abbreviations     names of the parser -> text -> Model -> Listing -> the text with the shortest forms
//     brokenAbbreviations       text before -> Model, text after -> Model; Comparison asks both what each form means
//
// A Model is a parser made of the text alone. So an earlier release is asked like the present one, through the same
// library, and nothing here matches names.
#include "vorn/host/abbreviations.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "library.h"
#include "parse.h"
#include "shown_text.h"
#include "text_parts.h"
#include "value_reader.h"
#include "walk.h"

namespace vorn_3_1::host {

namespace {

using detail::Meaning;
using detail::piecesOf;
using detail::Record;
using detail::Table;
using detail::What;

// The text. Names and choices hold no blank in it, so that "# SHORTEST" is told from them.
//
//     vorn abbreviations 1
//     option format # f
//       choice json # js
//     switch verbose # v
//     command remove,rm # rem
//       switch force,f # f
//     end
constexpr char heading[] = "vorn abbreviations 1";

/// The "no-" form of a switch, as the library has it.
std::string offForm(const std::string& name) { return "no-" + name; }

bool isEscaped(char character) {
    return static_cast<unsigned char>(character) <= ' ' || character == ',' || character == '\\' ||
           character == 0x7F;
}

/// "a b" becomes "a\x20b"; withBlanks is the way back. A comma is escaped as well, since it parts names.
std::string withoutBlanks(std::string_view text) {
    constexpr char digits[] = "0123456789abcdef";
    std::string escaped;
    for (const char character : text) {
        if (!isEscaped(character)) {
            escaped += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        escaped.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 0xF]);
    }
    return escaped;
}

std::string withBlanks(std::string_view escaped) {
    std::string text;
    while (!escaped.empty()) {
        if (escaped[0] != '\\' || escaped.size() < 4) {
            text += escaped[0];
            escaped.remove_prefix(1);
            continue;
        }
        text += static_cast<char>(std::stoi(std::string(escaped.substr(2, 2)), nullptr, 16));
        escaped.remove_prefix(4);
    }
    return text;
}

/// The commands that lead to a table, without the program.
std::string pathBehindProgram(const Table& table) {
    if (!table.isCommand()) return "";
    const std::string front = pathBehindProgram(*table.outer);
    return detail::joined({front, front.empty() ? "" : " ", table.firstName()});
}

bool mayShortenChoices(const Record& record) {
    return record.choices() != nullptr && (record.areChoicesNamed() || record.type->isText);
}

/// Two numbers of choices with the same value have the same group.
std::size_t groupOf(const Record& record, std::size_t choice) {
    for (std::size_t i = 0; i < choice; ++i) {
        if (record.choices()->isSame(i, *record.choices(), choice)) return i;
    }
    return choice;
}

/// One line for each value, with all the names that stand for it.
void writeChoices(const Record& record, const std::string& indent, std::string& text) {
    const std::vector<std::string> texts = record.choiceTexts();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (groupOf(record, i) != i) continue;
        text += indent + "  choice " + withoutBlanks(texts[i]);
        for (std::size_t k = i + 1; k < texts.size(); ++k) {
            if (groupOf(record, k) == i) text += "," + withoutBlanks(texts[k]);
        }
        text += "\n";
    }
}

/// Writes a table and its commands. Nobody types the name of a positional argument, so one without choices is left
/// out.
void writeNames(Table& table, const std::string& indent, std::string& text) {
    detail::prepare(table);
    for (const Record& record : table.records) {
        const bool hasChoices = mayShortenChoices(record);
        if (record.isPositional() && !hasChoices) continue;
        const char* kind = record.what == What::toggle   ? "switch "
                           : record.what == What::option ? "option "
                           : record.isPositional()       ? "argument "
                                                         : "flag ";
        text += indent + (record.isGlobal ? "global " : "") + kind + detail::listed(record.allNames(), ",") +
                "\n";
        if (hasChoices) writeChoices(record, indent, text);
    }
    for (const std::unique_ptr<Table>& command : table.commands) {
        text += indent + "command " + command->names + "\n";
        writeNames(*command, indent + "  ", text);
        text += indent + "end\n";
    }
}

[[noreturn]] void refuse(std::string_view line) {
    throw std::invalid_argument("vorn: no table of abbreviations: " + detail::shown(line));
}

/// A parser with the same names, which answers as the one did that the text was made of.
class Model {
public:
    explicit Model(std::string_view text) : root(new Table("", "", nullptr), &detail::release) {
        std::vector<std::string> lines = piecesOf(text, '\n');
        if (lines[0] != heading) refuse(lines[0]);
        table = root.get();
        for (std::size_t i = 1; i < lines.size(); ++i) {
            try {
                enter(lines[i]);
            } catch (const std::exception&) {
                refuse(lines[i]);
            }
        }
        if (table != root.get()) refuse("a command has no end");
    }

    Table& outermost() const { return *root; }

private:
    /// Enters one line. What stands behind " # " is passed over: the shortest forms are worked out anew. All options
    /// are of whole numbers, whatever type they had, since only names are asked for.
    void enter(std::string_view line) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        std::vector<std::string> words = piecesOf(line.substr(0, line.find(" # ")), ' ');
        const bool isGlobal = words[0] == "global";
        if (isGlobal) words.erase(words.begin());
        if (words[0].empty() || words[0] == "#") return;
        if (words[0] == "end") {
            if (table->outer == nullptr) refuse(line);
            table = table->outer;
            return;
        }
        if (words.size() != 2) refuse(line);
        if (words[0] == "choice") return enterChoice(piecesOf(words[1], ','));
        if (words[0] == "command") {
            table = &table->enterCommand(words[1], "");
            return;
        }
        const What what = kindOf(words[0], line);
        const unsigned number = table->enter(words[1], "", what, detail::TypeFactsOf<int>::facts);
        table->records[number].isGlobal = isGlobal;
    }

    static What kindOf(std::string_view kind, std::string_view line) {
        if (kind == "option") return What::option;
        if (kind == "switch") return What::toggle;
        if (kind == "flag") return What::flag;
        if (kind == "argument") return What::positional;
        refuse(line);
    }

    /// The names of one value, which is a number here.
    void enterChoice(const std::vector<std::string>& names) {
        if (table->records.empty()) throw std::invalid_argument("no option");
        Record& record = table->records.back();
        if (!record.details) record.details = detail::Owned<detail::Details>(new detail::Details);
        detail::Choices& choices = record.details->choices;
        if (!choices.values) choices.values = detail::Owned<detail::Values>(record.type->make());
        auto& values = static_cast<detail::TypedValues<int>&>(*choices.values).items;
        const int value = static_cast<int>(choices.names.size());
        for (const std::string& name : names) {
            choices.names.push_back(withBlanks(name));
            values.push_back(value);
        }
    }

    std::unique_ptr<Table, void (*)(Table*)> root;
    Table* table;
};

/// Calls `each(name, first)` for all names that can be typed behind a parser's name, global ones of outer parsers
/// included. `first` is the name that the option is known by.
template <class Each>
void forEachOption(Table& table, Each each) {
    for (Table* owner = &table; owner != nullptr; owner = owner->outer) {
        for (const Record& record : owner->records) {
            if (!record.isOption() || (owner != &table && !record.isGlobal)) continue;
            const std::string first(record.firstName());
            for (const std::string& name : record.allNames()) {
                each(name, first);
                if (record.what == What::toggle) each(offForm(name), offForm(first));
            }
        }
    }
}

bool isAmong(const std::string& name, const std::vector<std::string>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

Table* commandNamed(const Table& table, const std::string& name) {
    for (const std::unique_ptr<Table>& command : table.commands) {
        if (isAmong(name, piecesOf(command->names, ','))) return command.get();
    }
    return nullptr;
}

/// What a text means to a version: the first names of what it may mean.
struct Answer {
    bool isOne = false;  ///< It means that and nothing else.
    std::vector<std::string> names;

    bool isSame(const Answer& other) const { return isOne && other.isOne && names == other.names; }
};

/// Answers of one parser, for one kind of names.
class Oracle {
public:
    Oracle() = default;
    Oracle(const Oracle&) = delete;
    Oracle& operator=(const Oracle&) = delete;
    virtual ~Oracle() = default;
    /// What each text means to the parser, in their order.
    virtual std::vector<Answer> ask(const std::vector<std::string>& typed) = 0;
    /// Whether the name is declared, as it stands there.
    virtual bool hasInFull(const std::string& name) const = 0;
    /// All that may be typed for the name, the shortest first, whether or not something else fits it too.
    virtual std::vector<std::string> forms(const std::string& name) const = 0;
};

/// All beginnings of a word at characters' ends, by their lengths.
std::vector<std::size_t> beginnings(std::string_view word, bool withEmpty) {
    std::vector<std::size_t> lengths;
    if (withEmpty) lengths.push_back(0);
    for (std::size_t length = 0; length < word.size();) {
        length += detail::firstCharacter(word.substr(length)).length;
        lengths.push_back(length);
    }
    return lengths;
}

/// All ways to shorten a name by words, the shortest first.
std::vector<std::string> formsByWords(const std::string& name) {
    // Forms multiply with each word. Where there would be more than this, a word counts with its shortest beginnings
    // and in full, so that a comparison runs out of neither time nor memory.
    constexpr double most = 200000;
    constexpr std::size_t fewLetters = 4;
    const std::vector<std::string> words = piecesOf(name, '-');
    double number = 1;
    for (const std::string& word : words)
        number *= static_cast<double>(word.size() + 1);
    std::vector<std::string> forms = {""};
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::vector<std::size_t> lengths = beginnings(words[i], i > 0);
        if (number > most && lengths.size() > fewLetters + 1) {
            lengths.erase(lengths.begin() + fewLetters, lengths.end() - 1);
        }
        std::vector<std::string> longer;
        for (const std::string& front : forms) {
            for (const std::size_t length : lengths)
                longer.push_back(front + (i > 0 ? "-" : "") + words[i].substr(0, length));
        }
        forms = std::move(longer);
    }
    std::stable_sort(forms.begin(), forms.end(), [](const std::string& left, const std::string& right) {
        return left.size() < right.size();
    });
    return forms;
}

/// Options, or the commands, of a parser.
class NameOracle final : public Oracle {
public:
    NameOracle(Table& asked, bool areCommands) : table(asked), isForCommands(areCommands) {}

    std::vector<std::string> forms(const std::string& name) const override { return formsByWords(name); }

    /// Asks for few at a time: what is left behind an ambiguous one is asked for again.
    std::vector<Answer> ask(const std::vector<std::string>& typed) override {
        constexpr std::size_t few = 16;
        std::vector<Answer> answers;
        for (std::size_t i = 0; i < typed.size();) {
            std::vector<std::string> names;
            for (; names.size() < few && i < typed.size(); ++i)
                names.push_back("--" + typed[i]);
            const std::vector<Meaning> heard = meanings(names);
            for (std::size_t k = 0; k < names.size(); ++k)
                answers.push_back(detail::canNameOption(names[k]) ? answerOf(heard[k]) : Answer());
        }
        return answers;
    }

    bool hasInFull(const std::string& name) const override {
        if (isForCommands) return commandNamed(table, name) != nullptr;
        bool isThere = false;
        forEachOption(table, [&](const std::string& each, const std::string&) { isThere |= each == name; });
        return isThere;
    }

private:
    std::vector<Meaning> meanings(const std::vector<std::string>& names) const {
        if (!isForCommands) return detail::meaningsOf(*table.library, names);
        if (table.commandLibrary == nullptr) return std::vector<Meaning>(names.size());
        return table.commandLibrary->ask(names);
    }

    Answer answerOf(const Meaning& meaning) const {
        Answer answer;
        if (meaning.kind == Meaning::Kind::ambiguous) answer.names = meaning.candidates;
        if (meaning.kind != Meaning::Kind::found) return answer;
        answer.isOne = true;
        if (isForCommands) {
            answer.names = {std::string(table.commands[meaning.index]->firstName())};
            return answer;
        }
        const std::string name(meaning.record().firstName());
        answer.names = {meaning.isOff ? offForm(name) : name};
        return answer;
    }

    Table& table;
    bool isForCommands;
};

/// The choices of an option.
class ChoiceOracle final : public Oracle {
public:
    explicit ChoiceOracle(const Record& asked) : record(asked) {}

    /// Without choices, every text is one.
    bool hasInFull(const std::string& name) const override {
        return record.choices() == nullptr || isAmong(name, record.details->choices.names);
    }

    std::vector<std::string> forms(const std::string& name) const override {
        std::vector<std::string> beginningsOf;
        for (const std::size_t length : beginnings(name, false))
            beginningsOf.push_back(name.substr(0, length));
        return beginningsOf;
    }

    std::vector<Answer> ask(const std::vector<std::string>& typed) override {
        std::vector<Answer> answers;
        for (const std::string& text : typed)
            answers.push_back(answerTo(text));
        return answers;
    }

private:
    /// In a Model a choice is read as a number: that of the first name of its value (enterChoice).
    Answer answerTo(const std::string& text) const {
        Answer answer;
        if (record.choices() == nullptr) return {true, {text}};
        detail::TypedValues<int> read;
        const detail::Refusal refusal = detail::readValue(record, text, read);
        if (refusal && refusal.kind == Error::Kind::ambiguousValue) answer.names = refusal.candidates;
        if (refusal) return answer;
        return {true, {record.details->choices.names[static_cast<std::size_t>(read.items[0])]}};
    }

    const Record& record;
};

/// The first form that means what the name in full means; the name itself if there is none.
std::string shortestOf(Oracle& oracle, const std::string& name) {
    const std::vector<std::string> forms = oracle.forms(name);
    const Answer full = oracle.ask({name})[0];
    const auto shortest = std::find_if(forms.begin(), forms.end(), [&](const std::string& form) {
        return oracle.ask({form})[0].isSame(full);
    });
    return shortest != forms.end() ? *shortest : name;
}

/// Lists the shortest forms of all names.
class Listing {
public:
    std::vector<Abbreviation> entries;

    /// In the order of the lines that writeNames writes, on which withShortest counts.
    void list(Table& table) {
        detail::prepare(table);
        const std::string path = pathBehindProgram(table);
        NameOracle options(table, false);
        for (const Record& record : table.records) {
            for (const std::string& name : namesOf(record))
                entries.push_back(
                    {{AbbreviatedName::Kind::option, path, "", name, false}, shortestOf(options, name)});
            ChoiceOracle choices(record);
            for (const std::string& name : record.choiceTexts())
                entries.push_back({{AbbreviatedName::Kind::choice, path, std::string(record.firstName()),
                                    name, record.isPositional()},
                                   shortestOf(choices, name)});
        }
        NameOracle commands(table, true);
        for (const std::unique_ptr<Table>& command : table.commands) {
            for (const std::string& name : piecesOf(command->names, ','))
                entries.push_back(
                    {{AbbreviatedName::Kind::command, path, "", name, false}, shortestOf(commands, name)});
            list(*command);
        }
    }

private:
    static std::vector<std::string> namesOf(const Record& record) {
        std::vector<std::string> names;
        if (!record.isOption()) return names;
        for (const std::string& name : record.allNames()) {
            names.push_back(name);
            if (record.what == What::toggle) names.push_back(offForm(name));
        }
        return names;
    }
};

/// Adds the shortest forms to the lines of a table's text, which stand in the order of the entries.
std::string withShortest(const std::string& text, const std::vector<Abbreviation>& entries) {
    std::string all;
    std::size_t next = 0;
    for (const std::string& line : piecesOf(text, '\n')) {
        if (line.empty()) continue;
        all += line;
        const std::string_view shown = std::string_view(line).substr(line.find_first_not_of(' '));
        const bool hasNames = shown != heading && shown != "end" && shown.substr(0, 9) != "argument ";
        std::size_t names = 1 + static_cast<std::size_t>(std::count(line.begin(), line.end(), ','));
        if (shown.find("switch ") != std::string_view::npos) names *= 2;  // no name holds a blank
        for (std::size_t i = 0; hasNames && i < names; ++i)
            all.append(i == 0 ? " # " : " ").append(withoutBlanks(entries[next++].shortest));
        all += '\n';
    }
    return all;
}

/// Compares two versions.
class Comparison {
public:
    std::vector<BrokenAbbreviation> broken;

    /// First all that can be typed here, then what stands behind each command that is still there.
    void compare(Table& before, Table& after) {
        detail::prepare(before);
        detail::prepare(after);
        path = pathBehindProgram(before);
        NameOracle optionsBefore(before, false);
        NameOracle optionsAfter(after, false);
        forEachOption(before, [&](const std::string& name, const std::string& first) {
            compareName(AbbreviatedName::Kind::option, "", name, first, optionsBefore, optionsAfter);
        });
        for (const Record& record : before.records) {
            if (record.choices() != nullptr) compareChoices(record, after);
        }
        NameOracle commandsBefore(before, true);
        NameOracle commandsAfter(after, true);
        for (const std::unique_ptr<Table>& command : before.commands) {
            const std::string first(command->firstName());
            for (const std::string& name : piecesOf(command->names, ','))
                compareName(AbbreviatedName::Kind::command, "", name, first, commandsBefore, commandsAfter);
        }
        for (const std::unique_ptr<Table>& command : before.commands) {
            for (const std::string& name : piecesOf(command->names, ',')) {
                Table* later = commandNamed(after, name);
                if (later == nullptr) continue;  // said already
                compare(*command, *later);
                break;
            }
        }
    }

private:
    void compareChoices(const Record& record, const Table& after) {
        const std::string option(record.firstName());
        const detail::NameMeaning* later = nullptr;
        for (const std::string& name : record.allNames()) {
            if (later == nullptr) later = after.findDeclared(name);
        }
        if (later == nullptr) return;  // said already, or nobody typed its name
        ChoiceOracle choicesBefore(record);
        ChoiceOracle choicesAfter(after.records[later->index]);
        for (std::size_t i = 0; i < record.choices()->size(); ++i) {
            const std::vector<std::string>& names = record.details->choices.names;
            compareName(AbbreviatedName::Kind::choice, option, names[i], names[groupOf(record, i)],
                        choicesBefore, choicesAfter, record.isPositional());
        }
    }

    /// Of all forms that meant the name before, notes those that now mean nothing, something else or several things.
    /// `now` is what the shortest of them means.
    void compareName(AbbreviatedName::Kind kind, const std::string& option, const std::string& name,
                     const std::string& first, Oracle& before, Oracle& after, bool isPositional = false) {
        BrokenAbbreviation one;
        one.kind = kind;
        one.command = path;
        one.option = option;
        one.isPositional = isPositional;
        one.name = name;
        const std::vector<std::string> promised = promisedForms(name, before);
        const std::vector<Answer> answers = after.ask(promised);
        const Answer full = meaningInFull(name, first, after);
        for (std::size_t i = 0; i < promised.size(); ++i) {
            if (answers[i].isSame(full)) continue;
            if (one.typed.empty()) one.now = answers[i].names;
            one.typed.push_back(promised[i]);
        }
        if (!one.typed.empty()) broken.push_back(std::move(one));
    }

    /// All forms that mean the name, the shortest first.
    static std::vector<std::string> promisedForms(const std::string& name, Oracle& oracle) {
        const std::vector<std::string> forms = oracle.forms(name);
        const Answer full = oracle.ask({name})[0];
        const std::vector<Answer> answers = oracle.ask(forms);
        std::vector<std::string> promised;
        for (std::size_t i = 0; i < forms.size(); ++i) {
            if (answers[i].isSame(full)) promised.push_back(forms[i]);
        }
        return promised;
    }

    /// What a name has to mean now: its option, which is known by its first name or, if that is gone, by this one.
    static Answer meaningInFull(const std::string& name, const std::string& first, Oracle& after) {
        for (const std::string& known : {first, name}) {
            if (after.hasInFull(known)) return after.ask({known})[0];
        }
        return {};
    }

    std::string path;
};

std::string typedForm(const BrokenAbbreviation& broken, const std::string& text) {
    switch (broken.kind) {
        case AbbreviatedName::Kind::option:
            return detail::hyphened(text);
        case AbbreviatedName::Kind::choice:
            return broken.isPositional ? text : detail::hyphened(broken.option) + "=" + text;
        case AbbreviatedName::Kind::command:
            break;
    }
    return text;
}

}  // namespace

/// Parser::abbreviations comes through here as well, so that the same names give the same text, whoever asks.
Abbreviations Abbreviations::read(Text text) {
    const Model model(text);
    Abbreviations read;
    Listing listing;
    listing.list(model.outermost());
    read.entries = std::move(listing.entries);
    std::string names = std::string(heading) + "\n";
    writeNames(model.outermost(), "", names);
    read.written = withShortest(names, read.entries);
    return read;
}

Abbreviations Parser::abbreviations() {
    std::string names = std::string(heading) + "\n";
    writeNames(*table, "", names);
    return Abbreviations::read(names);
}

std::string BrokenAbbreviation::text() const {
    std::string sentence = command.empty() ? "" : detail::escaped(command) + ": ";
    sentence += detail::inQuotes(typedForm(*this, typed.at(0)));
    sentence += typed[0] == name ? " was taken" : " meant " + detail::inQuotes(typedForm(*this, name));
    std::vector<std::string> shown;
    for (const std::string& each : now)
        shown.push_back(detail::inQuotes(typedForm(*this, each)));
    if (now.empty()) {
        sentence += " and is unknown now";
    } else {
        sentence +=
            (now.size() == 1 ? " and means " : " and is ambiguous now: ") + detail::listed(shown, ", ");
        if (now.size() == 1) sentence += " now";
    }
    const std::size_t more = typed.size() - 1;
    if (more > 0)
        sentence += " (and " + std::to_string(more) + (more == 1 ? " longer form)" : " longer forms)");
    return sentence;
}

std::vector<BrokenAbbreviation> brokenAbbreviations(const Abbreviations& before, const Abbreviations& after) {
    const Model modelBefore(before.text());
    const Model modelAfter(after.text());
    Comparison comparison;
    comparison.compare(modelBefore.outermost(), modelAfter.outermost());
    return std::move(comparison.broken);
}

}  // namespace vorn_3_1::host
