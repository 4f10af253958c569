// From one text to one value, by the rules of its declaration.
#ifndef VORN_HOST_VALUE_READER_H
#define VORN_HOST_VALUE_READER_H

#include <string>
#include <string_view>

#include "table.h"
#include "vorn/host/error.h"

namespace vorn_3_1::host::detail {

/// What speaks against a value; no sentence if nothing does.
struct Refusal {
    Error::Kind kind = Error::Kind::invalidValue;
    std::string value;  ///< The item of a list, if not the whole text.
    std::string reason;
    std::vector<std::string> candidates;
    std::string sentence;

    explicit operator bool() const { return !sentence.empty(); }
};

/// Appends the value that the text, which is not empty, stands for; or says why there is none.
Refusal readValue(const Record& record, std::string_view text, Values& values);

/// The same for each item of a list; appends all of them or nothing.
Refusal readItems(const Record& record, std::string_view text, Values& values);

/// What a variable says of a switch, a flag or a count: how often it is given.
Refusal readOccurrences(const Record& record, std::string_view text, int& count);

/// What ranges and the host's checks say of a value. `text` is how it was typed.
Refusal judgeValue(const Record& record, const Values& values, std::size_t index, std::string_view text);

}  // namespace vorn_3_1::host::detail

#endif
