// The queries. An occurrence is in a range up to but not at `high`, a value up to and at `high`; and a
// default is found whatever the range. All three are what hosts rely on.
#include <climits>
#include <exception>
#include <utility>

#include "base/result_codes.h"
#include "result/parse_result.h"

namespace vorn_3_1 {

namespace {

Value emptyValue(std::int32_t status) { return {nullptr, status, INT_MAX, {}}; }

}  // namespace

namespace internal {

bool ParseResult::present(const char* name, int low, int high) {
    tamsu2::variant_t value;
    std::int32_t position = INT_MAX;
    try {
        if (find(name, nullptr, value, low, high, position) != 0) return false;
    } catch (const std::exception&) {
        return false;
    }
    // The state in which next delivers a default exactly once.
    if (isDefaultedOnly()) rangeLow = rangeHigh = INT_MAX;
    return true;
}

Value ParseResult::get(const char* name, int low, int high) {
    return answer([&](Value& out) { return find(name, &out.text, out.value, low, high, out.position); });
}

Value ParseResult::next(const char*) {
    return answer([&](Value& out) { return advance(&out.text, out.value, out.position); });
}

template <class Query>
Value ParseResult::answer(Query query) {
    try {
        Value out = emptyValue(0);
        const int code = query(out);
        return code == 0 ? std::move(out) : emptyValue(code);
    } catch (const std::exception&) {
        return emptyValue(exceptionCaught);
    }
}

// A null `text` asks for presence only.
int ParseResult::find(const char* name, const char** text, tamsu2::variant_t& value, int low, int high,
                      std::int32_t& position) {
    rangeLow = low;
    rangeHigh = high;
    const NameEntry* entry = name == nullptr ? nullptr : options.find(name);
    currentEntry = entry == nullptr || entry->name->record == nullptr ? nullptr : entry->name;
    valueCursor = nullptr;
    occurrenceCursor = nullptr;
    if (currentEntry == nullptr) return notFound;

    const Given& given = currentEntry->record->given;
    valueCursor = given.values.begin();
    occurrenceCursor = given.occurrences.begin();
    if (isDefaultedOnly()) {
        deliverDefault(text, value, position);
        return 0;
    }
    while (*occurrenceCursor != nullptr &&
           !((*occurrenceCursor)->position >= low && (*occurrenceCursor)->position < high)) {
        occurrenceCursor = Chain<Occurrence>::after(occurrenceCursor);
    }
    if (*occurrenceCursor == nullptr) return notFound;
    return text == nullptr ? 0 : advance(text, value, position);
}

int ParseResult::advance(const char** text, tamsu2::variant_t& value, std::int32_t& position) {
    if (currentEntry == nullptr) return notFound;
    if (isDefaultedOnly()) {
        if (rangeLow != INT_MAX || rangeHigh != INT_MAX) return notFound;
        deliverDefault(text, value, position);
        rangeLow = 0;
        return 0;
    }
    if (currentEntry->record->given.values.empty()) {
        position = nextPosition();
        return position == INT_MAX ? notFound : 0;
    }
    while (*valueCursor != nullptr && (*valueCursor)->position < rangeLow) {
        valueCursor = Chain<StoredValue>::after(valueCursor);
    }
    if (*valueCursor == nullptr || (*valueCursor)->position > rangeHigh) return notFound;
    StoredValue& found = **valueCursor;
    if (!found.isKept) {
        found.text = garbage.adopt(found.text).data();
        found.isKept = true;
    }
    value = found.value.kind() == tamsu2::qel_empty ? tamsu2::variant_t(found.text) : found.value;
    *text = found.text;
    position = found.position;
    valueCursor = Chain<StoredValue>::after(valueCursor);
    return 0;
}

void ParseResult::deliverDefault(const char** text, tamsu2::variant_t& value, std::int32_t& position) const {
    value = currentEntry->record->defaultVariant;
    if (text != nullptr) *text = currentEntry->record->defaultText;
    position = currentEntry->defaultPosition;
}

bool ParseResult::isDefaultedOnly() const {
    const Record& record = *currentEntry->record;
    return record.given.occurrences.empty() && *record.defaultText != '\0';
}

int ParseResult::nextPosition() {
    if (occurrenceCursor == nullptr || *occurrenceCursor == nullptr) return INT_MAX;
    const std::int32_t position = (*occurrenceCursor)->position;
    occurrenceCursor = Chain<Occurrence>::after(occurrenceCursor);
    return position;
}

int ParseResult::getFirstArgument(const char** out) {
    if (out == nullptr) return exceptionCaught;
    if (arguments.empty()) return notFound;
    argumentCursor = 0;
    return getNextArgument(out);
}

int ParseResult::getNextArgument(const char** out) {
    if (out == nullptr) return exceptionCaught;
    if (argumentCursor >= arguments.size()) return notFound;
    *out = arguments[argumentCursor++].text;
    return 0;
}

}  // namespace internal

Value getLastValue(IParseResult* result, const char* name, int low, int high) {
    Value last = emptyValue(internal::notFound);
    if (result == nullptr || name == nullptr) return last;
    for (Value value = result->get(name, low, high); value.status == 0; value = result->next(name)) {
        last = std::move(value);
    }
    return last;
}

}  // namespace vorn_3_1
