// A host in thirty lines: minimal [options] input...
#include <cstdio>
#include <string_view>

#include "vorn/host.h"

namespace host = vorn_3_1::host;

int main(int argc, char** argv) {
    host::Parser parser;
    parser.usage("Usage: minimal [options] input...");
    parser.add<int>("level,l", "How hard to try.").allow(1, 2, 3).defaultTo(2).synonym("effort");
    parser.add<std::string_view>("output-file,o", "Where the result goes.").defaultTo("out.bin");
    parser.add<std::string_view>("tags", "Words that describe the result.").list(',');
    parser.add<bool>("verbose", "Say what is done.").defaultTo(false);
    parser.add<std::string_view>("input", "").positional();

    // Ends the process on a mistake (exit code 2) and for --help.
    const host::Result result = parser.parseOrExit(argc, argv);

    std::printf("level %d, to %s\n", *result.value<int>("level"),
                result.value<std::string_view>("output-file")->data());
    for (std::string_view input : result.values<std::string_view>("input")) {
        std::printf("input %s\n", input.data());
    }
    if (*result.value<bool>("verbose")) {
        std::printf("%zu tags\n", result.values<std::string_view>("tags").size());
    }
}
