// The counter itself. It is a plain variable, not in a function: IArgumentParser::m_idx is bound to it at compile time.
#include "base/position_counter.h"

namespace vorn_3_1::internal {

unsigned positionCounter = 1;

}  // namespace vorn_3_1::internal
