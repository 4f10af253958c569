// Help for people: what a parser has declared, as pages for a terminal.
#ifndef VORN_HOST_HELP_H
#define VORN_HOST_HELP_H

#include <string>

#include "table.h"

namespace vorn_3_1::host::detail {

/// The help of one parser, at most `columns` wide.
std::string helpText(const Table& table, bool all, unsigned columns, bool isColoured);

}  // namespace vorn_3_1::host::detail

#endif
