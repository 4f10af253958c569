// What a parse found, and the queries on it.
//
//     for (vorn_3_1::Value value = result->get("file"); value.status == 0; value = result->next("file"))
//         open(value.text);
#ifndef VORN_RESULT_H
#define VORN_RESULT_H

#include <limits.h>

#include "vorn/export.h"
#include "vorn/value.h"

namespace vorn_3_1 {

/// The outcome of one or more parses; a second parse into the same result appends. Slot order is
/// contract.
///
/// Made by IParser::createResult, owned by the host, released with destroy; independent of the
/// parser, which may be destroyed first.
///
/// Names are looked up exactly as registered: the first name or any synonym, no abbreviation; null is
/// a miss.
///
/// Every occurrence, value, default and argument after "--" has a position number from one counter of
/// the process, so ranges of positions relate options to each other: get("file", p, INT_MAX) begins
/// with the first file after position p. `low` 0 and `high` INT_MAX select everything.
///
/// The counter is never reset, and a process that has drawn 2147483646 numbers has used up the
/// positions. Parsing goes on, but what comes after them has the position INT_MAX and then negative
/// ones: it is stored, and no range from 0 on finds it.
///
/// All names share one cursor: a get or present of one name ends the iteration over another. Texts
/// handed out stay valid until the result is destroyed, and equal texts are the same pointer.
class IParseResult {
public:
    /// Ends the result and every text that it has handed out.
    virtual void destroy() = 0;

    /// Whether the option occurred at a position in [low, high), or has a default and did not occur
    /// at all. The following next answers with the first value, the default included.
    virtual bool present(const char* name, int low = 0, int high = INT_MAX) = 0;

    /// The first value, if the option occurred at a position in [low, high); values start at position
    /// `low`, and one at exactly `high` is still delivered. For an option given without values: the
    /// position of the occurrence, with a null text. For an option that did not occur: its default,
    /// whatever the range. Status 1 is a miss, 3 a std::exception.
    virtual Value get(const char* name, int low = 0, int high = INT_MAX) = 0;

    /// The next value of the iteration that the last get or present began, whatever the name.
    virtual Value next(const char* name) = 0;

    /// The next occurrence's position in the iteration that the last get or present began, or
    /// INT_MAX. Not limited by the range's upper bound.
    virtual int nextPosition() = 0;

    /// The first argument after "--". Returns 0, or 1 when there is none, or 3 for a null `out` or a
    /// std::exception; other than 0 leaves the pointer at `out` untouched.
    virtual int getFirstArgument(const char** out) = 0;

    /// The argument after the one delivered last; codes as for getFirstArgument.
    virtual int getNextArgument(const char** out) = 0;

    virtual ~IParseResult() = default;
};

/// The last value of the option in the range of positions: get and next until a miss. For an option
/// given without values: its last occurrence. A null result or name, and any failure of the first
/// get, answer as not found: status 1.
VORN_API Value getLastValue(IParseResult* result, const char* name, int low = 0, int high = INT_MAX);

}  // namespace vorn_3_1

#endif
