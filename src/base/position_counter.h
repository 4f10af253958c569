// The numbers that order everything on a command line.
//
// Every occurrence of an option, every value, every recorded default (one for each name) and every argument after "--"
// draws one. For "-a=x,y -b -- z":
//
//     -a  1    x  2    y  3    -b  4    z  5
//
// So a host can ask for the values of one option that stand between two occurrences of another. Recognisers, the
// result store and the step behind "--" draw numbers; queries compare them.
#ifndef VORN_BASE_POSITION_COUNTER_H
#define VORN_BASE_POSITION_COUNTER_H

#include <cstdint>

namespace vorn_3_1::internal {

/// The next position number; starts at 1. One for the whole process: never reset, neither between parses
/// nor between parsers. IArgumentParser::m_idx is another name for it; it lives down here because the
/// result store draws from it, too.
extern unsigned positionCounter;

/// Draws a number. After 2147483646 the next one is INT_MAX, which stands for "no position", and then come
/// negative ones: the parse goes on, and queries from 0 on find no more of it. That is kept on purpose, and
/// far away: a million numbers a second last for half an hour.
inline std::int32_t nextPosition() { return static_cast<std::int32_t>(positionCounter++); }

}  // namespace vorn_3_1::internal

#endif
