// The smallest useful host: a number with a default, a path, a list, a switch, and files to read.
#include <cstdio>
#include <string>

#include "vorn/host.h"

namespace host = vorn::host;

int main(int argc, char** argv) {
    host::Parser parser("minimal", "Shows what it was given.");
    const auto level =
        parser.add<int>("level,l", "How hard to try.").range(1, 3).defaultTo(2).synonym("effort").key();
    const auto output =
        parser.add<std::string>("output-file,o", "Where the result goes.").defaultTo("out.bin").key();
    const auto tags = parser.add<std::string>("tags", "Words that describe the result.").list(',').key();
    const auto verbose = parser.addSwitch("verbose", "Say what is done.").key();
    const auto inputs = parser.addPositional<std::string>("input", "Files to read.").atLeast(0).key();

    // Ends the process on a mistake (exit code 2), and for --help.
    const host::Result result = parser.parseOrExit(argc, argv);

    std::printf("level %d, to %s\n", result[level], result[output].c_str());
    for (const std::string& input : result[inputs])
        std::printf("input %s\n", input.c_str());
    if (result[verbose]) std::printf("%zu tags\n", result[tags].size());
}
