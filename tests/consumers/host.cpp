// A host as its author would write it, in C++11: `host --lev 3 file` prints what it read.
#include <cstdio>

#include "vorn/vorn.h"

int main(int argc, char** argv) {
    vorn_3_1::IParser* parser = nullptr;
    vorn_3_1::IParseResult* result = nullptr;
    if (vorn_3_1::createParser(&parser, vorn_3_1::unknownIsError | vorn_3_1::hyphenNotPositional) != 0)
        return 3;
    parser->option("level,l", "How hard to try.", tamsu2::qel_int, "general")->defaultValue(1);
    parser->option("input", "", tamsu2::qel_string, "general")->positional();
    int code = parser->createResult(&result);
    if (code == 0) code = parser->parseArgsVector(argc, argv, result);
    if (code == 0) {
        const vorn_3_1::Value input = result->get("input");
        std::printf("level %d, input %s\n", result->get("level").value.asInt(),
                    input.status == 0 ? input.text : "-");
    } else {
        std::printf("code %d: %s\n", code, parser->getErrorDesc());
    }
    if (result != nullptr) result->destroy();
    parser->destroy();
    return code;
}
