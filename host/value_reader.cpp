// The way of a text to a value, and all that can be said against it there:
//
//     readItems      "1,x,3"    cuts lists; the first bad item ends it, and the items before it are taken back
//     readByType     "x"        by name among choices, or by the type's own rules: 'x' is not a whole number, ...
//     judgeValue     "200"      the range, then the host's checks: '200' is too large for '--quality': at most 100
//
// parse.cpp calls readItems for each value. table.cpp has defaults judged by the same rules.
#include "value_reader.h"

#include "shown_text.h"
#include "suggestions.h"
#include "text_parts.h"

namespace vorn_3_1::host::detail {

namespace {

constexpr std::size_t noChoice = static_cast<std::size_t>(-1);

Refusal refuse(Error::Kind kind, std::string reason, std::string sentence) {
    Refusal refusal;
    refusal.kind = kind;
    refusal.reason = std::move(reason);
    refusal.sentence = std::move(sentence);
    return refusal;
}

/// No message shows a secret.
std::string quotedValue(const Record& record, std::string_view text) {
    return record.isSecret ? "'***'" : inQuotes(text);
}

/// Whether a list's text has an empty item anywhere.
bool hasEmptyItem(std::string_view text, char separator) {
    char previous = separator;
    for (const char character : text) {
        if (character == separator && previous == separator) return true;
        previous = character;
    }
    return previous == separator;
}

std::string about(std::string_view text, std::string_view says, const Record& record) {
    return joined({quotedValue(record, text), " ", says, " '", record.shownName(), "'"});
}

/// "is too large" or "is too small", with the limit that the option has or else its type.
Refusal beyond(const Record& record, std::string_view text, std::string_view says, std::string limit) {
    const bool isLarge = says == "is too large";
    const Values* own = nullptr;
    if (record.details) own = (isLarge ? record.details->limits.high : record.details->limits.low).get();
    if (own != nullptr) limit = (isLarge ? "at most " : "at least ") + own->show(0);
    std::string sentence = about(text, joined({says, " for"}), record);
    if (!limit.empty()) sentence += ": " + shown(limit);
    return refuse(Error::Kind::outOfRange, limit, sentence);
}

/// Words a reason that a type gives; see Type::read.
Refusal unreadable(const Record& record, std::string_view text, const std::string& reason) {
    for (const std::string_view beginning : {"is too large", "is too small"}) {
        if (reason.compare(0, beginning.size(), beginning) != 0) continue;
        const std::size_t limit = reason.find(": ");
        return beyond(record, text, beginning, limit == std::string::npos ? "" : reason.substr(limit + 2));
    }
    if (reason.compare(0, 3, "is ") == 0) {
        return refuse(Error::Kind::invalidValue, reason,
                      joined({quotedValue(record, text), " ", shown(reason), ", which '", record.shownName(),
                              "' takes"}));
    }
    return refuse(Error::Kind::invalidValue, reason,
                  about(text, "is no value for", record) + ": " + shown(reason));
}

Refusal ambiguous(const Record& record, std::string_view text, std::vector<std::string> fitting) {
    Refusal refusal = refuse(Error::Kind::ambiguousValue, "",
                             about(text, "is ambiguous for", record) + ": " + shown(listed(fitting, ", ")));
    refusal.candidates = std::move(fitting);
    return refusal;
}

/// All choices where they are few, otherwise those that look like the text.
Refusal notAllowed(const Record& record, std::string_view text) {
    constexpr std::size_t few = 12;
    const std::vector<std::string> texts = record.choiceTexts();
    std::vector<std::string> near = nearestTexts(text, texts);
    std::string sentence = about(text, "is not allowed for", record);
    if (texts.size() <= few) {
        sentence += ": " + shown(listed(texts, ", "));
    } else if (!near.empty()) {
        sentence += joined({"; did you mean ", quotedAlternatives(near), "?"});
    }
    Refusal refusal = refuse(Error::Kind::notAllowed, "", std::move(sentence));
    refusal.candidates = std::move(near);
    return refusal;
}

/// A text in full counts first, then a beginning that fits one choice alone. Two names for one value are one choice.
Refusal chooseByName(const Record& record, std::string_view text, Values& values) {
    const Values& choices = *record.choices();
    const std::vector<std::string> texts = record.choiceTexts();
    std::size_t chosen = noChoice;
    std::vector<std::string> fitting;
    bool isUnique = true;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i] == text) return values.take(choices, i), Refusal();
        if (text.empty() || !beginsWith(texts[i], text)) continue;  // '' is no beginning
        fitting.push_back(texts[i]);
        if (chosen == noChoice) chosen = i;
        isUnique = isUnique && choices.isSame(chosen, choices, i);
    }
    if (chosen == noChoice) return notAllowed(record, text);
    if (!isUnique) return ambiguous(record, text, std::move(fitting));
    values.take(choices, chosen);
    return {};
}

Refusal readAllowed(const Record& record, std::string_view text, Values& values) {
    const std::string reason = values.read(text);
    if (!reason.empty()) return unreadable(record, text, reason);
    const Values& choices = *record.choices();
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (values.isSame(values.size() - 1, choices, i)) return {};
    }
    values.dropLast();
    return notAllowed(record, text);
}

Refusal readByType(const Record& record, std::string_view text, Values& values) {
    if (record.choices() != nullptr) {
        const bool byName = record.areChoicesNamed() || record.type->isText;
        return byName ? chooseByName(record, text, values) : readAllowed(record, text, values);
    }
    const std::string reason = values.read(text);
    return reason.empty() ? Refusal() : unreadable(record, text, reason);
}

}  // namespace

Refusal readValue(const Record& record, std::string_view text, Values& values) {
    Refusal refusal = readByType(record, text, values);
    if (refusal) return refusal;
    refusal = judgeValue(record, values, values.size() - 1, text);
    if (refusal) values.dropLast();
    return refusal;
}

Refusal readItems(const Record& record, std::string_view text, Values& values) {
    const char separator = record.separator;
    if (separator != '\0' && hasEmptyItem(text, separator)) {
        return refuse(Error::Kind::emptyItem, "", quotedValue(record, text) + " has an empty item");
    }
    const std::size_t kept = values.size();
    while (true) {
        const std::size_t end = separator != '\0' ? text.find(separator) : std::string_view::npos;
        const std::string_view item = text.substr(0, end);
        if (Refusal refusal = readValue(record, item, values)) {
            while (values.size() > kept)
                values.dropLast();
            refusal.value = item;
            return refusal;
        }
        if (end == std::string_view::npos) return {};
        text.remove_prefix(end + 1);
    }
}

Refusal readOccurrences(const Record& record, std::string_view text, int& count) {
    constexpr int mostCounted = 1000;  // each would be an argument on a command line
    std::string reason;
    if (record.what == What::count) {
        const bool isRead = Type<int>::read(text, count).empty() && count >= 0 && count <= mostCounted;
        if (!isRead) reason = "is not a whole number from 0 to " + std::to_string(mostCounted);
    } else {
        bool isOn = false;
        reason = Type<bool>::read(text, isOn);
        count = isOn ? 1 : 0;
    }
    return reason.empty() ? Refusal() : unreadable(record, text, reason);
}

Refusal judgeValue(const Record& record, const Values& values, std::size_t index, std::string_view text) {
    if (!record.details) return {};
    const Limits& limits = record.details->limits;
    if (limits.low && limits.isLess(values, *limits.low, index, 0)) {
        return beyond(record, text, "is too small", "");
    }
    if (limits.high && limits.isLess(*limits.high, values, 0, index)) {
        return beyond(record, text, "is too large", "");
    }
    for (const Owned<Check>& check : record.details->checks) {
        const std::string reason = check->judge(values, index);
        if (reason.empty()) continue;
        return refuse(Error::Kind::refused, reason,
                      about(text, "is refused for", record) + ": " + shown(reason));
    }
    return {};
}

}  // namespace vorn_3_1::host::detail
