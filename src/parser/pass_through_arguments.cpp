// What follows "--": kept for the host, and offered to the positional option if the host wants that.
//
//     tool -v -- a -b       getFirstArgument gives "a", getNextArgument "-b"
//
// Under positionalAfterTerminator, a and -b are values of the positional option as well.
#include <exception>
#include <string>
#include <string_view>

#include "base/diagnostic_log.h"
#include "parser/basic_parser.h"
#include "recognisers/positional_options_parser.h"
#include "result/parse_result.h"

namespace vorn_3_1 {

using namespace internal;

namespace {
constexpr std::string_view logPrefix = "collectNonparsingArguments: ";
}

// The list is empty or begins with the terminator; a second terminator is an argument like any other. What was kept
// before a failure stays kept. A std::exception gives 3 here, not the 4 of the loop, and no text: kept on purpose.
int BasicParser::collectNonparsingArguments(std::string_view terminator, ArgumentList& args,
                                            ParseResult* result, std::string& error) {
    try {
        if (!args.empty() && args.front() == terminator) args.removeFront();
        for (; !args.empty(); args.removeFront()) {
            const std::int32_t position = nextPosition();
            if (result != nullptr) result->addArgument(args.front(), position);
            logLine(logPrefix, "stored argument: '", args.front(), "'");
            if ((flags & positionalAfterTerminator) == 0) continue;
            const int code = offerToPositional(args.front(), result, error);
            if (code != 0) return code;
        }
        return 0;
    } catch (const std::exception&) {
        return exceptionCaught;
    }
}

// 0 when the positional option does not take the argument, or takes it and all is well.
int BasicParser::offerToPositional(std::string_view argument, ParseResult* result, std::string& error) {
    // Behind "--" a hyphen has no meaning left.
    PositionalOptionsParser positional(recogniserContext(flags & ~hyphenNotPositional));
    ArgumentList alone;
    alone.append(argument);
    int code = positional.recognize(alone, storage, error);
    logLine(logPrefix, "recognize result: ", std::to_string(code), ", message: ", error);
    if (code != 0) return 0;
    code = positional.parse(alone, result, storage, error);
    logLine(logPrefix, "parse result: ", std::to_string(code), ", message: ", error);
    return code;
}

}  // namespace vorn_3_1
