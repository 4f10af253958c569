// A host that uses no standard stream, so that nothing but the library sets them up: the log and a refused name
// are written all the same.
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "vorn/vorn.h"

namespace {

const char* const expected =
    "PositionalOptionsParser: recognizing argument '-x'\n"
    "AbbreviationParser: recognizing argument '-x'\n"
    "ignoring -x\n";

bool refusesAndLogs(vorn_3_1::IParser& parser) {
    char logSwitch[] = "vornoption=vornlogenable=1";
    char unknown[] = "-x";
    char* argv[] = {nullptr, logSwitch, unknown};
    parser.option("taken", "", tamsu2::qel_empty, "");
    parser.option("taken", "", tamsu2::qel_empty, "");
    return parser.parseArgsVector(3, argv, nullptr) == 0;
}

bool hasWritten(std::FILE* file, const char* text) {
    char written[1000] = {};
    std::rewind(file);
    static_cast<void>(std::fread(written, 1, sizeof written - 1, file));
    return std::strcmp(written, text) == 0;
}

}  // namespace

int main() {
    std::FILE* const output = std::tmpfile();
    std::FILE* const errors = std::tmpfile();
    dup2(fileno(output), STDOUT_FILENO);
    dup2(fileno(errors), STDERR_FILENO);
    vorn_3_1::IParser* parser = nullptr;
    if (vorn_3_1::createParser(&parser) != 0 || !refusesAndLogs(*parser)) return 1;
    parser->destroy();
    return hasWritten(output, expected) && hasWritten(errors, "taken\n") ? 0 : 2;
}
