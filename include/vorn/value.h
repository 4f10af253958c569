// The record that carries one value across the interface.
#ifndef VORN_VALUE_H
#define VORN_VALUE_H

#include "tamsu2/variant.h"

namespace vorn_3_1 {

/// One value: the argument of EventHandler::onValueParse and the answer of the value queries.
/// The order of the fields is contract.
///
/// A query that finds nothing answers with `text` null, a `status` other than 0, `position` INT_MAX
/// and an empty `value`.
struct Value {
    /// The value's text, or null. Kept by the parser (events) or the result (queries).
    const char* text;

    /// 0 when the record holds a value; 1 for a miss; 3 after a std::exception.
    int status;

    /// Position number; INT_MAX when nothing was found.
    int position;

    /// The typed value; empty for an option without values.
    tamsu2::variant_t value;

    /// The text, or null when the status is not 0: as<const char*>() is the one form there is.
    template <class T>
    T as() const {
        static_assert(sizeof(T) == 0, "a Value reads as const char* only");
    }
};

template <>
inline const char* Value::as<const char*>() const {
    return status == 0 ? text : nullptr;
}

}  // namespace vorn_3_1

#endif
