// A host that is compiled without exceptions, without run-time types and without the headers of any C++ standard library.
// It uses no standard stream, so that nothing but the library sets them up: the log is written all the same, and, in a
// process of its own that is given an argument, a refused name. It parses before main begins and after it has ended.
#include <stdio.h>
#include <string.h>
#include <unistd.h>

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

/// Counts the events of one parser.
class Counter : public EventHandler {
public:
    bool onValueParse(const char*, const Value&) override { return ++values, true; }
    int values = 0;
};

bool parses(IParser& parser, char* first, char* second, IParseResult* result) {
    char* argv[] = {nullptr, first, second};
    return parser.parseArgsVector(3, argv, result) == 0;
}

// Positions begin with the process: two options with a value each were parsed before main.
constexpr int firstOfMain = 5;
bool countsFromOne(IParser& parser) {
    IParseResult* result = nullptr;
    if (parser.createResult(&result) != 0 || !parses(parser, given, given, result)) return false;
    const int first = result->get("taken").position;
    const bool isRight = first == firstOfMain && result->next("taken").position == first + 1;
    result->destroy();
    return isRight;
}

/// Lives longer than all that main makes.
class Early {
public:
    Early() {
        if (createParser(&parser) != 0 || parser->createResult(&result) != 0) _exit(4);
        parser->addHandler(&counter);
        parser->option("number,n", "", tamsu2::qel_int, "");
        parse(number, 1);
    }
    ~Early() {
        parse(number, 2);
        parse(unknown, 2);
        parser->destroy();
        if (result->get("number").value.asInt() != 5) _exit(6);
        result->destroy();
    }

private:
    void parse(char* argument, int values) {
        if (!parses(*parser, argument, argument, result) || counter.values != 2 * values) _exit(5);
    }

    IParser* parser = nullptr;
    IParseResult* result = nullptr;
    Counter counter;
    char number[5] = {'-', 'n', '=', '5', 0};
};

const Early early;

}  // namespace

int main(int argc, char**) {
    const bool isRefused = argc > 1;
    FILE* const console = tmpfile();
    dup2(fileno(console), STDOUT_FILENO);
    dup2(fileno(console), STDERR_FILENO);
    IParser* parser = nullptr;
    if (createParser(&parser) != 0) return 1;
    for (int i = 0; i < argc; ++i)
        parser->option("taken", "", tamsu2::qel_empty, "");
    if (!isRefused && !(countsFromOne(*parser) && parses(*parser, logSwitch, unknown, nullptr))) return 2;
    parser->destroy();
    char written[1000] = {};
    rewind(console);
    static_cast<void>(fread(written, 1, sizeof written - 1, console));
    return strcmp(written, isRefused ? "taken\n" : logText) == 0 ? 0 : 3;
}
