// The meaning of an option depends on where it stands: each file gets the options in front of it.
#include <cstdio>
#include <string>
#include <vector>

#include "vorn/host.h"

namespace host = vorn::host;

static void build(const std::string& source, const std::vector<std::string>& macros,
                  const std::string& level) {
    std::string line = "compile " + source + " -O" + level;
    for (const std::string& macro : macros)
        line += " -D" + macro;
    std::puts(line.c_str());
}

int main(int argc, char** argv) {
    host::Parser parser("build", "Shows how each file would be compiled, with the options in front of it.");
    parser.joinedShort();
    const auto define =
        parser.add<std::string>("define,D", "Define a macro for the files that follow.").repeated().key();
    const auto level = parser.add<std::string>("optimize,O", "How hard to try for the files that follow.")
                           .allow("0", "1", "2", "3", "s")
                           .defaultTo("0")
                           .key();
    const auto sources = parser.addPositional<std::string>("source", "Files to build.").atLeast(0).key();
    const host::Result result = parser.parseOrExit(argc, argv);

    for (const host::Given<std::string>& source : result.given(sources)) {
        const host::Range inFront = host::before(source.position);
        build(source.value, result.values(define, inFront), result.values(level, inFront).back());
    }
}
