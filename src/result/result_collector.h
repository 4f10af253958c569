// The narrow face of a result that recognisers see: they store, and know nothing of queries.
#ifndef VORN_RESULT_RESULT_COLLECTOR_H
#define VORN_RESULT_RESULT_COLLECTOR_H

#include "result/option_data.h"

namespace vorn_3_1::internal {

class OptionDescription;

/// Implemented by ParseResult. A recogniser gets a null pointer instead when the host parses without a result.
class IResultCollector {
public:
    /// Records the occurrence and its values under every name of the option, and takes the typed values out
    /// of `data`. Returns 0. Throws std::out_of_range when the option has no names.
    virtual int store(const OptionDescription& option, OptionData& data) = 0;

protected:
    ~IResultCollector() = default;  // nobody owns a result through this face
};

}  // namespace vorn_3_1::internal

#endif
