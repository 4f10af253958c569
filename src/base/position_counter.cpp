#include "base/position_counter.h"

namespace vorn_3_1::internal {

unsigned positionCounter = 1;

}  // namespace vorn_3_1::internal
