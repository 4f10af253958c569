// What a process is started with.
#ifndef VORN_HOST_PROCESS_ENVIRONMENT_H
#define VORN_HOST_PROCESS_ENVIRONMENT_H

#include <cstdlib>
#include <string>
#include <vector>

#include "parse.h"

namespace vorn_3_1::host::detail {

class ProcessEnvironment final : public Environment {
public:
    const char* find(const std::string& name) const override { return std::getenv(name.c_str()); }
};

/// The arguments behind the program's name. Throws std::invalid_argument for a null `argv` or element.
std::vector<std::string> textsOf(int argc, const char* const* argv);

}  // namespace vorn_3_1::host::detail

#endif
