// What a process is started with, or a host pretends that it is.
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

/// What a host makes up.
class GivenEnvironment final : public Environment {
public:
    explicit GivenEnvironment(const std::vector<Variable>& given) : variables(given) {}
    const char* find(const std::string& name) const override {
        for (const Variable& variable : variables) {
            if (variable.name == name) return variable.value.c_str();
        }
        return nullptr;
    }

private:
    const std::vector<Variable>& variables;
};

/// The arguments behind the program's name. Throws std::invalid_argument for a null `argv` or element.
std::vector<std::string> textsOf(int argc, const char* const* argv);

}  // namespace vorn_3_1::host::detail

#endif
