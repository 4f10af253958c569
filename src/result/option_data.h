// What one occurrence of an option amounts to, on its way from a recogniser to a result.
#ifndef VORN_RESULT_OPTION_DATA_H
#define VORN_RESULT_OPTION_DATA_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "tamsu2/variant.h"

namespace vorn_3_1::internal {

struct ValueRecord {
    std::string_view text;    // as validation left it; may be one NUL character
    tamsu2::variant_t value;  // empty where the text itself is the value
    std::int32_t position = 0;
};

/// The texts live in the argument list, or in the option where validation has expanded them.
struct OptionData {
    std::int32_t position = 0;  // of the occurrence
    std::vector<ValueRecord> values;
};

}  // namespace vorn_3_1::internal

#endif
