// What one occurrence of an option amounts to, on its way from a recogniser to a result.
//
// For "--list=a,b" a recogniser puts together
//
//     position 7
//     values   {"a", 8}, {"b", 9}
//
// and gives it to IResultCollector::store. An option without values has none here, only its position.
#ifndef VORN_RESULT_OPTION_DATA_H
#define VORN_RESULT_OPTION_DATA_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "tamsu2/variant.h"

namespace vorn_3_1::internal {

/// One value, or one item of a list. The text lives in the argument list, or in the option where validation has
/// expanded it.
struct ValueRecord {
    std::string_view text;    // as validation left it; may be one NUL character
    tamsu2::variant_t value;  // empty where the text itself is the value
    std::int32_t position = 0;
};

struct OptionData {
    std::int32_t position = 0;  // of the occurrence
    std::vector<ValueRecord> values;
};

}  // namespace vorn_3_1::internal

#endif
