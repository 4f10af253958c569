// The same host with the companion: `companion --lev 3 file` prints what it read.
#include <cstdio>

#include "vorn/host.h"

namespace host = vorn::host;

int main(int argc, char** argv) {
    host::Parser parser("companion", "Prints what it read.");
    const auto level = parser.add<int>("level,l", "How hard to try.").defaultTo(1).key();
    const auto input = parser.addPositional<std::string>("input", "What to read.").optional().key();
    const host::Result result = parser.parseOrExit(argc, argv);
    std::printf("level %d, input %s\n", result[level], result[input].value_or("-").c_str());
}
