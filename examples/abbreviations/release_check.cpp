// Holds a release back that takes from users what they could type: a test of a tool's own. The table of the last release
// is kept beside it, and is written anew with each release:
//
//     release_check released.txt             compares; fails if the promise is broken
//     release_check released.txt --accept    writes the table of this version
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "options.h"
#include "vorn/host/abbreviations.h"

namespace host = vorn::host;

int main(int argc, char** argv) {
    host::Parser check("release_check", "Compares what users may type with the last release.");
    const auto path = check.addPositional<std::string>("table", "The table of the last release.").key();
    const auto accepts = check.addFlag("accept", "Write the table instead.").key();
    const host::Result result = check.parseOrExit(argc, argv);

    host::Parser tool("tool", "The tool that is released.");
    declareOptions(tool);
    if (result[accepts]) {
        std::ofstream file(result[path]);
        file << tool.abbreviations().text() << std::flush;
        return file ? 0 : 1;
    }
    std::ostringstream released;
    released << std::ifstream(result[path]).rdbuf();
    const auto broken =
        host::brokenAbbreviations(host::Abbreviations::read(released.str()), tool.abbreviations());
    for (const host::BrokenAbbreviation& one : broken)
        std::printf("%s\n", one.text().c_str());
    return broken.empty() ? 0 : 1;
}
