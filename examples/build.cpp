// The meaning of an option depends on where it stands: each file gets the options in front of it.
#include <cstdio>
#include <string>
#include <vector>

#include "vorn/host.h"

namespace host = vorn::host;

static void build(const std::string& source, const std::vector<std::string>& macros) {
    std::string line = "compile " + source;
    for (const std::string& macro : macros)
        line += " -D" + macro;
    std::puts(line.c_str());
}

int main(int argc, char** argv) {
    host::Parser parser("build", "Shows how each file would be compiled.");
    parser.joinedShort();
    const auto define =
        parser.add<std::string>("define,D", "Define a macro for the files that follow.").repeated().key();
    const auto sources = parser.addPositional<std::string>("source", "Files to build.").atLeast(0).key();
    const host::Result result = parser.parseOrExit(argc, argv);

    for (const host::Given<std::string>& source : result.given(sources))
        build(source.value, result.values(define, host::before(source.position)));
}
