// The sentences about mistakes of the companion's users. The plain interface has its own, in src: there it is
// "Unknown option: --x", here "unknown option '--x'".
//
// A sentence says what is wrong and, behind a semicolon, what to do. Most of the file looks for that second part:
//
//     --outptu=x     unknown option '--outptu'; did you mean '--output-dir'?
//     -lw            unknown option '-lw'; if '-l' and '-w' are meant, write them apart
//
// walk.cpp and parse.cpp find the mistakes and add where they stand.
#include "mistakes.h"

#include <algorithm>
#include <utility>

#include "shown_text.h"
#include "suggestions.h"
#include "text_parts.h"

namespace vorn_3_1::host::detail {

namespace {

using Kind = Error::Kind;

Error mistake(Kind kind, std::string sentence) {
    Error error;
    error.kind = kind;
    error.sentence = std::move(sentence);
    return error;
}

Error mistakeOf(const Record& record, Kind kind, std::string sentence) {
    Error error = mistake(kind, std::move(sentence));
    error.option = record.firstName();
    return error;
}

std::string named(const Record& record) { return "'" + record.shownName() + "'"; }

std::vector<std::string> hyphenedAll(std::vector<std::string> names) {
    for (std::string& name : names)
        name = hyphened(name);
    return names;
}

std::string_view withoutHyphens(std::string_view typed) {
    return typed.substr(beginsWith(typed, "--") ? 2 : 1);
}

/// "'-l' and '-w'"
std::string quotedAll(const std::vector<std::string>& pieces) {
    std::string all;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) all += i + 1 == pieces.size() ? " and " : ", ";
        all += inQuotes(pieces[i]);
    }
    return all;
}

/// The option that has this full name and may be typed with the table's own, or null.
const Record* optionNamed(const Table& table, std::string_view name) {
    for (const Table* owner = &table; owner != nullptr; owner = owner->outer) {
        const NameMeaning* found = owner->find(name);
        if (found == nullptr) continue;
        const Record& record = owner->records[found->index];
        if (owner == &table || record.isGlobal) return &record;
    }
    return nullptr;
}

/// The same for a command that was not chosen: its names are not entered.
bool hasOption(const Table& command, std::string_view name) {
    return std::any_of(command.records.begin(), command.records.end(), [name](const Record& record) {
        if (!record.isOption()) return false;
        const std::vector<std::string> names = record.allNames();
        return std::any_of(names.begin(), names.end(), [&](const std::string& own) {
            return own == name || (record.what == What::toggle && "no-" + own == name);
        });
    });
}

void appendOwners(const Table& table, std::string_view name, const std::string& front,
                  std::vector<std::string>& owners) {
    for (const auto& command : table.commands) {
        const std::string path = joined({front, command->firstName()});
        if (hasOption(*command, name)) owners.push_back(path);
        appendOwners(*command, name, path + " ", owners);
    }
}

/// Where an option would stand that is a command's, or an outer parser's; empty if it is nobody's.
std::string otherPlaceOf(const Table& table, std::string_view name) {
    for (const Table* inner = &table; inner->outer != nullptr; inner = inner->outer) {
        if (hasOption(*inner->outer, name))
            return joined({"; write it in front of the command ", inQuotes(inner->firstName())});
    }
    constexpr std::size_t few = 3;
    std::vector<std::string> owners;
    appendOwners(table, name, "", owners);
    if (owners.empty()) return {};
    if (owners.size() > few) return "; write it behind the command";
    return "; write it behind the command " + quotedAlternatives(owners);
}

/// "--no-size" where size is an option, but no switch.
std::string offFormOfNoSwitch(const Table& table, std::string_view name) {
    constexpr std::string_view off = "no-";
    const Record* record = beginsWith(name, off) ? optionNamed(table, name.substr(off.size())) : nullptr;
    if (record == nullptr) return {};
    return joined({"; ", inQuotes(hyphened(name.substr(off.size()))), " cannot be switched off"});
}

/// What a text such as "shelf=/x", "shelf: /x" or "--shelf /x" says, if it begins with an option's full name.
struct Setting {
    const Record* record = nullptr;
    std::string name;
    std::string_view value;
};

Setting settingIn(const Table& table, std::string_view argument) {
    constexpr std::string_view between = " \t=:";
    const std::string_view text = beginsWith(argument, "-") ? withoutHyphens(argument) : argument;
    Setting setting;
    setting.name = text.substr(0, text.find_first_of(between));
    setting.record = optionNamed(table, setting.name);
    if (setting.record != nullptr && setting.record->isBuiltIn()) setting.record = nullptr;
    setting.value = text.substr(std::min(text.find_first_not_of(between, setting.name.size()), text.size()));
    return setting;
}

/// How it would be written as one argument: "shelf /x" as "--shelf=/x", or "quiet=off", where quiet is a switch, as
/// "--no-quiet".
std::string rewritten(const Table& table, std::string_view argument) {
    const Setting setting = settingIn(table, argument);
    if (setting.record == nullptr) return {};
    std::string form = hyphened(setting.name);
    bool isOn = true;
    if (setting.record->what == What::option) {
        const std::string value =
            setting.value.empty() ? setting.record->metavar() : std::string(setting.value);
        form += "=" + (setting.record->isSecret ? "***" : value);
    } else if (setting.record->what == What::toggle && Type<bool>::read(setting.value, isOn).empty() &&
               !isOn) {
        form = "--no-" + setting.name;
    }
    return joined({"; write ", inQuotes(form)});
}

/// The argument without the secret in it.
std::string withoutSecret(const Table& table, std::string_view argument) {
    const Setting setting = settingIn(table, argument);
    const bool isSecret = setting.record != nullptr && setting.record->isSecret && !setting.value.empty();
    if (!isSecret) return std::string(argument);
    return joined({argument.substr(0, argument.size() - setting.value.size()), "***"});
}

void appendNames(const Table& table, bool onlyGlobal, bool withOffForms, std::vector<std::string>& names) {
    for (const Record& record : table.records) {
        if (!record.isOption() || record.isHidden || record.isDeprecated) continue;
        if (onlyGlobal && !record.isGlobal) continue;
        for (const std::string& name : record.allNames()) {
            names.push_back(name);
            if (withOffForms && record.what == What::toggle) names.push_back("no-" + name);
        }
    }
}

std::vector<std::string> allCommandNames(const Table& table) {
    std::vector<std::string> all;
    for (const auto& command : table.commands)
        forEachPiece(command->names, ',', [&all](std::string_view name) { all.emplace_back(name); });
    return all;
}

std::vector<std::string> commandNames(const Table& table) {
    std::vector<std::string> names;
    for (const auto& command : table.commands)
        names.emplace_back(command->firstName());
    return names;
}

}  // namespace

std::vector<std::string> typeableNames(const Table& table, bool withOffForms) {
    std::vector<std::string> names;
    appendNames(table, false, withOffForms, names);
    for (const Table* outer = table.outer; outer != nullptr; outer = outer->outer)
        appendNames(*outer, true, withOffForms, names);
    return names;
}

Error namesNoOption(std::string_view typed) {
    return mistake(Kind::unknownOption, inQuotes(typed) + " names no option");
}

Error unknownOption(std::string_view typed) {
    return mistake(Kind::unknownOption, "unknown option " + inQuotes(typed));
}

/// Gives one hint, the surest first: the same text as one argument, letters written apart, the place where the option
/// would be known, a switch that is none, the nearest names, the letter that is unknown. Those in front are certain or
/// nearly so; near names are only likely, so that they come late. "no-" forms are near only to what begins with "no".
Error unknownOption(const Table& table, std::string_view argument, const JoinedLetters& letters,
                    bool isOnCommandLine) {
    const std::string_view typed = argument.substr(0, argument.find('='));
    const std::string_view name = withoutHyphens(typed);
    Error error = unknownOption(withoutSecret(table, typed));
    error.candidates = nearestNames(name, typeableNames(table, beginsWith(name, "no")));
    constexpr std::size_t mostPieces = 6;
    std::string hint = rewritten(table, argument);
    if (hint.empty() && letters.pieces.size() > 1 && letters.pieces.size() <= mostPieces) {
        error.sentence += joined({"; if ", quotedAll(letters.pieces), " are meant, write them apart"});
        return error;
    }
    if (hint.empty() && isOnCommandLine) hint = otherPlaceOf(table, name);
    if (hint.empty()) hint = offFormOfNoSwitch(table, name);
    if (hint.empty() && !error.candidates.empty()) {
        hint = joined({"; did you mean ", quotedAlternatives(hyphenedAll(error.candidates)), "?"});
    }
    if (hint.empty() && !letters.strange.empty()) {
        error.sentence =
            joined({"unknown option ", inQuotes("-" + letters.strange), " in ", inQuotes(typed)});
    }
    error.sentence += hint;
    return error;
}

Error ambiguousOption(std::string_view typed, const Meaning& meaning) {
    const std::string all = listed(hyphenedAll(meaning.candidates), ", ");
    Error error = mistake(Kind::ambiguousOption, joined({inQuotes(typed), " is ambiguous: ", shown(all)}));
    error.candidates = meaning.candidates;
    error.libraryText = meaning.libraryText;
    return error;
}

Error needsValue(const Record& record) {
    return mistakeOf(record, Kind::missingValue, named(record) + " needs a value");
}

Error needsValueThatLooksLikeOption(const Record& record, std::string_view next) {
    const std::string behindSign =
        inQuotes(joined({record.shownName(), "=", record.isSecret ? "-***" : next}));
    return mistakeOf(
        record, Kind::missingValue,
        joined({named(record), " needs a value; for one that begins with '-', write ", behindSign}));
}

Error emptyValue(const Record& record, std::string_view typed) {
    return mistakeOf(record, Kind::missingValue, inQuotes(typed) + " has no value");
}

Error takesNoValue(const Record& record) {
    return mistakeOf(record, Kind::unexpectedValue, named(record) + " takes no value");
}

Error onlyOnCommandLine(const Record& record) {
    return mistakeOf(record, Kind::unknownOption, named(record) + " belongs on the command line");
}

Error noOptionInSettings(const Table& table, std::string_view argument) {
    return mistake(Kind::tooManyArguments,
                   joined({inQuotes(withoutSecret(table, argument)),
                           " is no option, and settings hold nothing else", rewritten(table, argument)}));
}

Error unexpectedArgument(std::string_view argument) {
    return mistake(Kind::tooManyArguments, "unexpected argument " + inQuotes(argument));
}

Error unreadableFile(std::string_view path, std::string_view reason) {
    Error error = mistake(Kind::unreadableFile, joined({"cannot read ", inQuotes(path), ": ", reason}));
    error.reason = reason;
    return error;
}

/// Names all commands where they are few; more would hide the message.
Error missingCommand(const Table& table) {
    constexpr std::size_t few = 12;
    Error error = mistake(Kind::missingCommand, "missing command");
    const std::vector<std::string> names = commandNames(table);
    if (names.size() <= few) error.sentence += ": " + shown(listed(names, ", "));
    return error;
}

Error unknownCommand(const Table& table, std::string_view typed) {
    Error error = mistake(Kind::unknownCommand, "unknown command " + inQuotes(typed));
    error.candidates = nearestNames(typed, allCommandNames(table));
    if (!error.candidates.empty()) {
        error.sentence += joined({"; did you mean ", quotedAlternatives(error.candidates), "?"});
    }
    return error;
}

Error ambiguousCommand(std::string_view typed, const Meaning& meaning) {
    Error error = mistake(
        Kind::unknownCommand,
        joined({"command ", inQuotes(typed), " is ambiguous: ", shown(listed(meaning.candidates, ", "))}));
    error.candidates = meaning.candidates;
    error.libraryText = meaning.libraryText;
    return error;
}

Error missingOption(const Record& record) {
    return mistakeOf(record, Kind::missingOption,
                     joined({"missing option: ", record.shownName(), " ", escaped(record.metavar())}));
}

Error missingOneOf(const Table& table, const RuleGroup& group) {
    std::vector<std::string> names;
    for (const unsigned member : group.members)
        names.push_back(table.records[member].shownName());
    Error error = mistake(Kind::missingOption, "missing option: one of " + listed(names, ", "));
    for (const unsigned member : group.members)
        error.candidates.emplace_back(table.records[member].firstName());
    return error;
}

/// Of an argument that takes several, tells how many it needs once there are some, but too few.
Error missingArgument(const Record& record, unsigned found) {
    std::string sentence = "missing argument: " + escaped(record.metavar());
    if (found > 0) sentence += joined({" (", std::to_string(record.atLeast), " or more)"});
    return mistakeOf(record, Kind::missingArgument, std::move(sentence));
}

Error conflict(const Record& first, const Record& second) {
    Error error = mistakeOf(first, Kind::conflict,
                            joined({named(first), " and ", named(second), " exclude each other"}));
    error.candidates = {std::string(first.firstName()), std::string(second.firstName())};
    return error;
}

Error missingCompanion(const Record& given, const Record& needed) {
    Error error = mistakeOf(given, Kind::missingCompanion,
                            joined({named(given), " needs ", named(needed), " as well"}));
    error.candidates = {std::string(needed.firstName())};
    return error;
}

std::string deprecationAdvice(const Record& record) {
    std::string advice = named(record) + " is deprecated";
    if (record.details && !record.details->instead.empty()) advice += "; " + escaped(record.details->instead);
    return advice;
}

}  // namespace vorn_3_1::host::detail
