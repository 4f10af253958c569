// Reading files and texts of arguments.
#ifndef VORN_HOST_SOURCES_H
#define VORN_HOST_SOURCES_H

#include <string>
#include <string_view>
#include <vector>

#include "result_data.h"

namespace vorn_3_1::host::detail {

/// Reads a text file. Returns "" or why it could not be read; `isMissing` tells whether there is none. Reading ends at
/// the first NUL, which no text holds, so that an endless file ends, too.
std::string readTextFile(const std::string& path, std::string& text, bool& isMissing);

/// The arguments of a text, one in a line: white space in front is skipped, lines that begin with ';' or '#' are
/// comments, carriage returns at the end are dropped, and empty lines are none. So is a byte-order mark.
std::vector<Argument> argumentsIn(std::string_view text, unsigned source);

}  // namespace vorn_3_1::host::detail

#endif
