// Whether an option accepts a value text, and every message that says why not.
//
// The recognisers call validate for every value, and for every item of a list. With the allowed values fast, full and
// fuller:
//
//     fast    accepted
//     fa      accepted, and becomes fast: it is the beginning of this value alone
//     full    accepted as it is, though fuller begins with it, too
//     fu      refused: ambiguous
//     x       refused: not allowed
#include <algorithm>
#include <string>
#include <string_view>

#include "options/option_description.h"
#include "text/joined_text.h"

namespace vorn_3_1::internal {

namespace {

// "follows" in both messages is the wording that hosts know: kept on purpose.

std::string ambiguous(std::string_view option, std::string_view allowed) {
    return joined({"Ambiguous value for option '", option, "'. Possible values follows: ", allowed});
}

std::string notAllowed(std::string_view option, std::string_view text, std::string_view allowed) {
    return joined(
        {"Option '", option, "' does not allow value '", text, "'. Possible values follows: ", allowed});
}

std::string notOfType(std::string_view option, std::string_view text, std::string_view type) {
    return joined(
        {"Option '", option, "' can not parse '", text, "' value, requires a type '", type, "' here."});
}

}  // namespace

// Texts are not converted: the text is the value, and most hosts never ask for a second copy of it.
bool OptionDescription::validate(std::string_view& text, tamsu2::variant_t& value, std::string& error) const {
    const bool isText = type() == tamsu2::qel_string;
    if (!isText && !convert(text, value)) {
        error = notOfType(firstName(), text, getTypeName());
        return false;
    }
    // A whole allowed value counts before it counts as the beginning of another one.
    if (allowedValues().empty() || isAllowed(text, value)) return true;

    const unsigned matches = isText ? expandBeginning(text) : 0;
    if (matches == 1) return true;
    const std::string list = listOfAllowedValues();
    error = matches == 0 ? notAllowed(firstName(), text, list) : ambiguous(firstName(), list);
    return false;
}

// The text counts as far as its first NUL, like the value that it is or stands for.
bool OptionDescription::isAllowed(std::string_view text, const tamsu2::variant_t& value) const {
    const bool isText = type() == tamsu2::qel_string;
    const std::string_view whole = text.substr(0, text.find('\0'));
    return std::ranges::any_of(allowedValues(), [&](const tamsu2::variant_t& allowed) {
        if (!isText) return value == allowed;
        const char* allowedText = allowed.asString();
        return allowedText != nullptr && whole == allowedText;
    });
}

// Counts the allowed values that begin with the text. If it is one alone, the text becomes that one.
unsigned OptionDescription::expandBeginning(std::string_view& text) const {
    unsigned matches = 0;
    const char* last = nullptr;
    for (const tamsu2::variant_t& allowed : allowedValues()) {
        const char* whole = allowed.asString();
        if (whole == nullptr || !std::string_view(whole).starts_with(text)) continue;
        ++matches;
        last = whole;
    }
    if (matches == 1) text = last;
    return matches;
}

// "'fast', 'full', 'fuller'"
std::string OptionDescription::listOfAllowedValues() const {
    std::string list;
    for (const tamsu2::variant_t& allowed : allowedValues()) {
        append(list, {list.empty() ? "'" : ", '", toString(garbage(), allowed), "'"});
    }
    return list;
}

}  // namespace vorn_3_1::internal
