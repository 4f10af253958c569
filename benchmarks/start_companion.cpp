// The same host through the companion.
#include "vorn/host.h"

namespace host = vorn::host;

int main(int argc, char** argv) {
    host::Parser parser("start");
    const auto output = parser.add<std::string>("output-file,o", "Where the result goes.").key();
    const auto level = parser.add<int>("level,l", "How hard to try.").defaultTo(2).key();
    const auto verbose = parser.addSwitch("verbose,v", "Tells what is done.").key();
    const auto ratio = parser.add<double>("ratio,r", "How much to keep.").key();
    const auto names = parser.add<std::string>("define,D", "Names to define.").list(',').key();
    const host::Result result = parser.parseOrExit(argc, argv);
    const bool found = result[output] && result[level] == 3 && result[verbose] && result[ratio];
    return found && result[names].size() == 2 ? 0 : 1;
}
