// What is said of each mistake in what a user has typed. The only place that words them, but for values
// (value_reader.cpp).
#ifndef VORN_HOST_MISTAKES_H
#define VORN_HOST_MISTAKES_H

#include <string>
#include <string_view>
#include <vector>

#include "library.h"
#include "table.h"
#include "vorn/host/error.h"

namespace vorn_3_1::host::detail {

/// All full names that a user could type in front of the table's command, the hidden and deprecated ones left out.
std::vector<std::string> typeableNames(const Table& table, bool withOffForms);

Error namesNoOption(std::string_view typed);
Error unknownOption(std::string_view typed);

/// What may have been meant by an argument that names no option.
struct JoinedLetters {
    std::vector<std::string> pieces;  ///< As they would be written apart, if all are names of options.
    std::string strange;              ///< The first that is none, if some in front of it are.
};
/// The same with what may have been meant. Another place is no help in settings.
Error unknownOption(const Table& table, std::string_view argument, const JoinedLetters& letters,
                    bool isOnCommandLine);
Error ambiguousOption(std::string_view typed, const Meaning& meaning);
Error needsValue(const Record& record);
Error needsValueThatLooksLikeOption(const Record& record, std::string_view next);
Error emptyValue(const Record& record, std::string_view typed);
Error takesNoValue(const Record& record);
Error onlyOnCommandLine(const Record& record);
Error noOptionInSettings(const Table& table, std::string_view argument);
Error unexpectedArgument(std::string_view argument);
Error unreadableFile(std::string_view path, std::string_view reason);
Error missingCommand(const Table& table);
Error unknownCommand(const Table& table, std::string_view typed);
Error ambiguousCommand(std::string_view typed, const Meaning& meaning);
Error missingOption(const Record& record);
Error missingOneOf(const Table& table, const RuleGroup& group);
Error missingArgument(const Record& record, unsigned found);
Error conflict(const Record& first, const Record& second);
Error missingCompanion(const Record& given, const Record& needed);

std::string deprecationAdvice(const Record& record);

}  // namespace vorn_3_1::host::detail

#endif
