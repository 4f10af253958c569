// What the process writes to.
#ifndef VORN_HOST_TERMINAL_H
#define VORN_HOST_TERMINAL_H

#include "vorn/host/parser.h"

namespace vorn_3_1::host::detail {

/// How wide help may be on standard output: as the terminal is, else as COLUMNS says, else 80; at most 100.
unsigned outputColumns();

/// Whether standard output is to have colours. Left to themselves, a terminal has them, unless NO_COLOR is set or the
/// terminal says that it has none.
bool outputHasColours(Colours wanted);

}  // namespace vorn_3_1::host::detail

#endif
