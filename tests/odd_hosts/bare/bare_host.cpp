// A host that uses no standard stream, so that nothing but the library sets them up: the log is written all the
// same, and, in a process of its own that is given an argument, a refused name.
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "vorn/vorn.h"

namespace {

using namespace vorn_3_1;

const char* const logText =
    "PositionalOptionsParser: recognizing argument '-x'\n"
    "AbbreviationParser: recognizing argument '-x'\n"
    "ignoring -x\n";

char logSwitch[] = "vornoption=vornlogenable=1";
char given[] = "-taken";
char unknown[] = "-x";

bool parses(IParser& parser, char* first, char* second, IParseResult* result) {
    char* argv[] = {nullptr, first, second};
    return parser.parseArgsVector(3, argv, result) == 0;
}

// Positions begin with the process.
bool countsFromOne(IParser& parser) {
    IParseResult* result = nullptr;
    if (parser.createResult(&result) != 0 || !parses(parser, given, given, result)) return false;
    const bool isRight = result->get("taken").position == 1 && result->next("taken").position == 2;
    result->destroy();
    return isRight;
}

}  // namespace

int main(int argc, char**) {
    const bool isRefused = argc > 1;
    std::FILE* const console = std::tmpfile();
    dup2(fileno(console), STDOUT_FILENO);
    dup2(fileno(console), STDERR_FILENO);
    IParser* parser = nullptr;
    if (createParser(&parser) != 0) return 1;
    for (int i = 0; i < argc; ++i)
        parser->option("taken", "", tamsu2::qel_empty, "");
    if (!isRefused && !(countsFromOne(*parser) && parses(*parser, logSwitch, unknown, nullptr))) return 2;
    parser->destroy();
    char written[1000] = {};
    std::rewind(console);
    static_cast<void>(std::fread(written, 1, sizeof written - 1, console));
    return std::strcmp(written, isRefused ? "taken\n" : logText) == 0 ? 0 : 3;
}
