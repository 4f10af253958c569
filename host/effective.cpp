// What is in force, as a settings text: each option with the value that counts, and above it where that comes from.
//
//     # the default
//     --quality=80
//     # THUMBS_SIZE
//     --size=10
//
// Read as settings, the text gives the same values again. So what could not be read back, or might break a rule once
// it is given, stands there as a comment; and no secret stands there at all.
#include <cstddef>
#include <string>

#include "result_data.h"
#include "shown_text.h"
#include "table.h"
#include "vorn/host/parser.h"

namespace vorn_3_1::host {

namespace {

using detail::Level;
using detail::Record;
using detail::Slot;
using detail::Values;
using detail::What;

/// A line of settings ends at a line feed and loses carriage returns before it, and a value is never empty.
bool canStandInALine(const std::string& value) {
    return !value.empty() && value.find_first_of(std::string("\n\0", 2)) == std::string::npos &&
           value.back() != '\r';
}

/// One line for each text that the option is to read.
std::vector<std::string> valueTexts(const Record& record, const Values& values) {
    std::vector<std::string> texts;
    const std::size_t begin = record.collects() ? 0 : values.size() - 1;
    for (std::size_t i = begin; i < values.size(); ++i) {
        std::string text = record.shownValue(values, i);
        if (record.separator != '\0' && !texts.empty()) {
            texts.back().append(1, record.separator).append(text);
        } else {
            texts.push_back(std::move(text));
        }
    }
    return texts;
}

std::vector<std::string> linesOf(const Record& record, const Values& values) {
    const std::string name(record.firstName());
    std::vector<std::string> lines;
    if (record.what == What::toggle) {
        const bool isOn = static_cast<const detail::TypedValues<bool>&>(values).items.back();
        lines.push_back((isOn ? "--" : "--no-") + name);
    } else if (record.what == What::flag) {
        const bool isGiven = static_cast<const detail::TypedValues<bool>&>(values).items.back();
        if (isGiven) lines.push_back("--" + name);
    } else if (record.what == What::count) {
        const int count = static_cast<const detail::TypedValues<int>&>(values).items.back();
        for (int i = 0; i < count; ++i)
            lines.push_back("--" + name);
    } else if (record.isSecret) {
        lines.push_back("# --" + name + " is secret");
    } else {
        for (const std::string& text : valueTexts(record, values)) {
            const bool isWritten = canStandInALine(text);
            lines.push_back(isWritten
                                ? detail::joined({"--", name, "=", text})
                                : detail::joined({"# --", name, " has a value that no settings can hold"}));
        }
    }
    return lines;
}

/// Whether a rule would count what is a default here, once it stands in a text.
bool isCheckedWhenGiven(const detail::Table& table, unsigned index) {
    const Record& record = table.records[index];
    if (record.isDeprecated || (record.details && !record.details->needs.empty())) return true;
    for (const detail::RuleGroup& rule : table.groups) {
        for (const unsigned member : rule.members) {
            if (member == index) return true;
        }
    }
    return false;
}

}  // namespace

std::string Parser::effective(const Result& result) const {
    std::string text;
    for (unsigned i = 0; i < table->records.size(); ++i) {
        const Record& record = table->records[i];
        if (!record.isOption() || record.isBuiltIn() || record.isOnlyTyped) continue;
        const AnyKey key = {table->id, i};
        const bool isThere = result.data != nullptr && result.data->level(key) != nullptr;
        const Values* values = isThere ? result.read(key) : nullptr;
        if (values == nullptr || values->size() == 0) continue;
        const std::vector<std::string> lines = linesOf(record, *values);
        const Slot* slot = result.data->level(key)->slot(i);
        const bool isDefault = slot == nullptr || slot->isEmpty();
        const char* mark = isDefault && isCheckedWhenGiven(*table, i) ? "# " : "";
        std::string said;
        for (std::size_t k = 0; k < lines.size(); ++k) {
            // Repeated values have a line each, and an origin each.
            const bool isOwn = !isDefault && lines.size() == slot->places.size();
            const std::string origin =
                isOwn ? result.data->origin(slot->places[k]).text() : result.origin(key).text();
            if (origin != said) text += "# " + origin + "\n";
            said = origin;
            text += mark + lines[k] + "\n";
        }
    }
    return text;
}

}  // namespace vorn_3_1::host
