// The host whose whole life is timed: five options, five arguments.
#include "vorn/vorn.h"

int main(int argc, char** argv) {
    using namespace vorn_3_1;
    IParser* parser = nullptr;
    IParseResult* result = nullptr;
    if (createParser(&parser, unknownIsError) != 0 || parser->createResult(&result) != 0) {
        return 1;
    }
    const char* group = "general:General options";
    parser->option("output-file,o", "Where the result goes.", tamsu2::qel_string, group)->tokenize('\0');
    parser->option("level,l", "How hard to try.", tamsu2::qel_int, group)->tokenize('\0')->defaultValue(2);
    parser->option("verbose,v", "Tells what is done.", tamsu2::qel_bool, group);
    parser->option("ratio,r", "How much to keep.", tamsu2::qel_double, group)->tokenize('\0');
    parser->option("define,D", "Names to define.", tamsu2::qel_string, group);
    const int code = parser->parseArgsVector(argc, argv, result);
    const bool found = result->get("level").value.asInt() == 3 && getLastValue(result, "D").text != nullptr;
    result->destroy();
    parser->destroy();
    return code == 0 && found ? 0 : 1;
}
