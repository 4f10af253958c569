// The same kind of host on the plain interface, for one that cannot use C++17 or the companion header. What the
// companion does by itself is done by hand here: flags, separators, strict numbers, defaults, releasing.
#include <cstdio>
#include <cstring>

#include "vorn/vorn.h"

namespace {

/// Refuses a level that is more than digits, and remembers why: "3x", which would read as 3, and "-1", "+3" and
/// "3 " as well.
class LevelCheck : public vorn_3_1::EventHandler {
public:
    const char* reason = "";

    bool onValueParse(const char* name, const vorn_3_1::Value& value) override {
        if (std::strcmp(name, "level") != 0) return true;
        if (value.text[std::strspn(value.text, "0123456789")] == '\0') return true;
        reason = " (a level is a plain number)";
        return false;
    }
};

void addOptions(vorn_3_1::IParser* parser) {
    // A builder is good until the next option call, so every option is finished before the next one.
    parser->option("level,l", "How hard to try.", tamsu2::qel_int, "general:General options")
        ->defaultValue(2)
        ->synonym("effort");
    parser->option("output-file,o", "Where the result goes.", tamsu2::qel_string, "general")
        ->defaultValue("out.bin")
        ->tokenize('\0');  // or a path would be cut at its commas
    parser->option("verbose", "Say what is done.", tamsu2::qel_bool, "general")->defaultValue(false);
    parser->option("help", "Show this help.", tamsu2::qel_empty, "general");
    parser->option("input", "", tamsu2::qel_string, "")->tokenize('\0')->positional();
}

void report(vorn_3_1::IParseResult* result) {
    const vorn_3_1::Value level = vorn_3_1::getLastValue(result, "level");
    const vorn_3_1::Value output = vorn_3_1::getLastValue(result, "output-file");
    std::printf("level %d, to %s\n", level.value.asInt(), output.text);

    vorn_3_1::Value input = result->get("input");
    for (; input.status == 0; input = result->next("input")) {
        // Null if all that was given is an empty argument: an occurrence without a value.
        if (input.text != nullptr) std::printf("input %s\n", input.text);
    }

    const char* argument = nullptr;
    for (int code = result->getFirstArgument(&argument); code == 0;
         code = result->getNextArgument(&argument)) {
        std::printf("passed through: %s\n", argument);
    }
    if (vorn_3_1::getLastValue(result, "verbose").value.asBool()) std::printf("That was all.\n");
}

/// Returns the exit code.
int run(vorn_3_1::IParser* parser, vorn_3_1::IParseResult* result, int argc, char** argv) {
    LevelCheck check;
    parser->addHandler(&check);
    // Settings first, then the command line: of several values the last one counts.
    int code =
        parser->parseStream("# what the tool always begins with\n--output-file=settings.bin\n", result);
    if (code == 0) code = parser->parseArgsVector(argc, argv, result);
    parser->removeHandler(&check);

    if (code != 0) {
        std::fprintf(stderr, "plain_interface: %s%s\n", parser->getErrorDesc(), check.reason);
        return 2;
    }
    if (result->present("help")) {
        std::fputs(parser->getDescription(), stdout);
        return 0;
    }
    report(result);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    vorn_3_1::IParser* parser = nullptr;
    if (vorn_3_1::createParser(&parser, vorn_3_1::unknownIsError | vorn_3_1::hyphenNotPositional) != 0)
        return 3;
    vorn_3_1::IParseResult* result = nullptr;
    int exitCode = 3;
    if (parser->createResult(&result) == 0) {
        addOptions(parser);
        exitCode = run(parser, result, argc, argv);
        result->destroy();
    }
    parser->destroy();
    return exitCode;
}
