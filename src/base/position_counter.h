// The numbers that order everything on a command line.
#ifndef VORN_BASE_POSITION_COUNTER_H
#define VORN_BASE_POSITION_COUNTER_H

#include <cstdint>

namespace vorn_3_1::internal {

/// The next position number; starts at 1. One for the whole process: never reset, neither between parses
/// nor between parsers. IArgumentParser::m_idx is another name for it; it lives down here because the
/// result store draws from it, too.
extern unsigned positionCounter;

/// Draws a number.
inline std::int32_t nextPosition() { return static_cast<std::int32_t>(positionCounter++); }

}  // namespace vorn_3_1::internal

#endif
