// The sentences about mistakes of the companion's users. The plain interface has its own, in src: there it is
// "Unknown option: --x", here "unknown option '--x'".
#include "mistakes.h"

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

std::string withoutHyphens(std::string_view typed) {
    return std::string(typed.substr(typed.substr(0, 2) == "--" ? 2 : 1));
}

/// "'-l' and '-w'"
std::string quotedAll(const std::vector<std::string>& pieces) {
    std::string all;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) all += i + 1 == pieces.size() ? " and " : ", ";
        all += quoted(pieces[i]);
    }
    return all;
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
    return mistake(Kind::unknownOption, quoted(typed) + " names no option");
}

Error unknownOption(std::string_view typed) {
    return mistake(Kind::unknownOption, "unknown option " + quoted(typed));
}

Error unknownOption(const Table& table, std::string_view typed, const std::vector<std::string>& pieces) {
    Error error = unknownOption(typed);
    const std::string name = withoutHyphens(typed);
    const bool isOffForm = name.compare(0, 2, "no") == 0;
    error.candidates = nearestNames(name, typeableNames(table, isOffForm));
    constexpr std::size_t mostPieces = 6;
    if (pieces.size() > 1 && pieces.size() <= mostPieces) {
        error.sentence += joined({"; if ", quotedAll(pieces), " are meant, write them apart"});
    } else if (!error.candidates.empty()) {
        error.sentence += joined({"; did you mean ", quotedAlternatives(hyphenedAll(error.candidates)), "?"});
    }
    return error;
}

Error ambiguousOption(std::string_view typed, const Meaning& meaning) {
    const std::string all = listed(hyphenedAll(meaning.candidates), ", ");
    Error error = mistake(Kind::ambiguousOption, joined({quoted(typed), " is ambiguous: ", shown(all)}));
    error.candidates = meaning.candidates;
    error.libraryText = meaning.libraryText;
    return error;
}

Error needsValue(const Record& record) {
    return mistakeOf(record, Kind::missingValue, named(record) + " needs a value");
}

Error needsValueThatLooksLikeOption(const Record& record, std::string_view next) {
    const std::string behindSign = quoted(joined({record.shownName(), "=", record.isSecret ? "-***" : next}));
    return mistakeOf(
        record, Kind::missingValue,
        joined({named(record), " needs a value; for one that begins with '-', write ", behindSign}));
}

Error emptyValue(const Record& record, std::string_view typed) {
    return mistakeOf(record, Kind::missingValue, quoted(typed) + " has no value");
}

Error takesNoValue(const Record& record) {
    return mistakeOf(record, Kind::unexpectedValue, named(record) + " takes no value");
}

Error onlyOnCommandLine(const Record& record) {
    return mistakeOf(record, Kind::unknownOption, named(record) + " belongs on the command line");
}

Error noOptionInSettings(std::string_view argument) {
    return mistake(Kind::tooManyArguments,
                   quoted(argument) + " is no option, and settings hold nothing else");
}

Error unexpectedArgument(std::string_view argument) {
    return mistake(Kind::tooManyArguments, "unexpected argument " + quoted(argument));
}

Error unreadableFile(std::string_view path, std::string_view reason) {
    Error error = mistake(Kind::unreadableFile, joined({"cannot read ", quoted(path), ": ", reason}));
    error.reason = reason;
    return error;
}

Error missingCommand(const Table& table) {
    constexpr std::size_t few = 12;
    Error error = mistake(Kind::missingCommand, "missing command");
    const std::vector<std::string> names = commandNames(table);
    if (names.size() <= few) error.sentence += ": " + shown(listed(names, ", "));
    return error;
}

Error unknownCommand(const Table& table, std::string_view typed) {
    Error error = mistake(Kind::unknownCommand, "unknown command " + quoted(typed));
    error.candidates = nearestNames(typed, allCommandNames(table));
    if (!error.candidates.empty()) {
        error.sentence += joined({"; did you mean ", quotedAlternatives(error.candidates), "?"});
    }
    return error;
}

Error ambiguousCommand(std::string_view typed, const Meaning& meaning) {
    Error error = mistake(
        Kind::unknownCommand,
        joined({"command ", quoted(typed), " is ambiguous: ", shown(listed(meaning.candidates, ", "))}));
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
