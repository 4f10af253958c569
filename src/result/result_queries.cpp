// The queries. A host begins an iteration with get or present, and continues it with next:
//
//     get      the first value                      next   the second, the third, ...
//     present  whether there is an occurrence       next   the first, the second, ...
//
// What next delivers depends on what the name has: its values; or its occurrences, when it was given without values;
// or its default, when it was not given at all.
//
// Three rules are kept on purpose. An occurrence is in a range up to but not at `high`, a value up to and at `high`,
// and a default is found whatever the range.
#include <climits>
#include <exception>
#include <utility>

#include "base/result_codes.h"
#include "result/parse_result.h"

namespace vorn_3_1 {

namespace {

Value noValue(int status) { return {nullptr, status, INT_MAX, {}}; }

}  // namespace

namespace internal {

bool ParseResult::present(const char* name, int low, int high) {
    if (!begin(name, {low, high})) return false;
    if (iteration.entry->contents->isDefaultOnly()) iteration.setDefaultDue(true);
    return true;
}

Value ParseResult::get(const char* name, int low, int high) {
    try {
        if (!begin(name, {low, high})) return noValue(notFound);
        return iteration.entry->contents->isDefaultOnly() ? deliverDefault() : deliverNext();
    } catch (const std::exception&) {
        return noValue(exceptionCaught);
    }
}

// The name does not matter: a result has one iteration at a time.
Value ParseResult::next(const char*) {
    try {
        return deliverNext();
    } catch (const std::exception&) {
        return noValue(exceptionCaught);
    }
}

// Whether the name has an occurrence in the range, or has only a default. The iteration then stands in front of that
// occurrence, and of the name's first value.
bool ParseResult::begin(const char* name, Range range) {
    iteration = {};
    iteration.range = range;
    const TableEntry* known = name == nullptr ? nullptr : entriesByName.find(name);
    if (known == nullptr || known->entry->contents == nullptr) return false;

    const Contents& found = *known->entry->contents;
    iteration.entry = known->entry;
    iteration.value = found.history.values.begin();
    iteration.occurrence = found.history.occurrences.begin();
    if (found.isDefaultOnly()) return true;

    auto& occurrence = iteration.occurrence;
    while (!occurrence.isAtEnd() && !(occurrence->position >= range.low && occurrence->position < range.high))
        occurrence.advance();
    return !occurrence.isAtEnd();
}

Value ParseResult::deliverNext() {
    if (iteration.entry == nullptr) return noValue(notFound);
    const Contents& found = *iteration.entry->contents;
    if (found.isDefaultOnly()) {
        if (!iteration.isDefaultDue()) return noValue(notFound);
        Value byDefault = deliverDefault();
        iteration.setDefaultDue(false);
        return byDefault;
    }
    return found.history.values.empty() ? deliverOccurrence() : deliverValue();
}

Value ParseResult::deliverDefault() const {
    const Contents& found = *iteration.entry->contents;
    return {found.defaultText, 0, iteration.entry->defaultPosition, found.defaultVariant};
}

// Not limited by the range: kept on purpose.
Value ParseResult::deliverOccurrence() {
    const int position = nextPosition();
    return position == INT_MAX ? noValue(notFound) : Value{nullptr, 0, position, {}};
}

Value ParseResult::deliverValue() {
    auto& next = iteration.value;
    while (!next.isAtEnd() && next->position < iteration.range.low)
        next.advance();
    if (next.isAtEnd() || next->position > iteration.range.high) return noValue(notFound);

    StoredValue& found = *next;
    if (!found.isKept) {
        found.text = garbage.adopt(found.text).data();
        found.isKept = true;
    }
    Value value{found.text, 0, found.position, found.value};
    if (value.value.kind() == tamsu2::qel_empty) value.value = tamsu2::variant_t(found.text);
    next.advance();  // only now: a value that could not be copied can be asked for again
    return value;
}

int ParseResult::nextPosition() {
    auto& next = iteration.occurrence;
    if (next.isAtEnd()) return INT_MAX;
    const std::int32_t position = next->position;
    next.advance();
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
    Value last = noValue(internal::notFound);
    if (result == nullptr || name == nullptr) return last;
    for (Value value = result->get(name, low, high); value.status == 0; value = result->next(name)) {
        last = std::move(value);
    }
    return last;
}

}  // namespace vorn_3_1
