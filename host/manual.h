// The writer for man(1).
#ifndef VORN_HOST_MANUAL_H
#define VORN_HOST_MANUAL_H

#include <string>
#include <string_view>

#include "table.h"

namespace vorn_3_1::host::detail {

/// The manual page of a tool and its commands, whose tables are sealed.
std::string manualPage(const Table& root, std::string_view date, std::string_view section);

}  // namespace vorn_3_1::host::detail

#endif
