// From the host's arguments to the recognisers: ask who takes the front argument, choose, let it consume.
//
//     parseArgsVector   records the defaults, takes the arguments over      (parseStream: command_text.cpp)
//       parseVector     runs the loop, then what follows "--"; the last error
//         parse         the loop: one turn for each option or positional argument
//
// For "--level 5 file -zz -- rest", with a positional option, under unknownIsError and hyphenNotPositional:
//
//     front of the list     who takes it
//     --level               the recogniser of names, together with 5
//     file                  the recogniser of positional arguments
//     -zz                   nobody: the handlers are asked, and then it is an error
//     --                    ends the loop
#include <exception>
#include <string>
#include <string_view>

#include "base/diagnostic_log.h"
#include "parser/basic_parser.h"
#include "recognisers/abbreviation_parser.h"
#include "recognisers/positional_options_parser.h"
#include "result/parse_result.h"
#include "text/joined_text.h"
#include "text/text_arena.h"

namespace vorn_3_1 {

using namespace internal;

namespace {

constexpr std::string_view endOfOptions = "--";
constexpr std::string_view logSwitch = "vornoption=vornlogenable=1";

// Every result that a host has was made by createResult.
ParseResult* implementationOf(IParseResult* result) { return static_cast<ParseResult*>(result); }

// The first element of argv is the host's own name. False when there is a null among the others. The texts are copied
// for hosts that may change theirs while they are parsed.
bool takeOver(ArgumentList& args, int argc, char** argv, TextArena* copies) {
    if (argv == nullptr) return false;
    args.reserve(static_cast<std::size_t>(argc));
    for (int i = 1; i < argc; ++i) {
        if (argv[i] == nullptr) return false;
        args.append(copies == nullptr ? argv[i] : copies->copy(argv[i]));
    }
    return true;
}

/// The recognisers of one parse.
class Recognisers {
public:
    Recognisers(const RecogniserContext& context, NameSearch& nameSearch)
        : positional(context), abbreviation(context, nameSearch) {}

    /// The one with the highest priority among those that take the front argument, or null.
    IArgumentParser* choose(const ArgumentList& args, const RegisteredOptionStorage& storage) {
        // Both are asked, in this order: their log lines are what hosts know.
        IArgumentParser* chosen = positional.recognize(args, storage, message) == 0 ? &positional : nullptr;
        if (abbreviation.recognize(args, storage, message) != 0) return chosen;
        return abbreviation.getPriority() > positional.getPriority() ? &abbreviation : chosen;
    }

private:
    PositionalOptionsParser positional;
    AbbreviationParser abbreviation;
    std::string message;  // what a recogniser says of an argument while it is only asked; not used
};

}  // namespace

// Defaults come first, and only here: parseStream records none. Recording them is outside of the try block, so that
// running out of memory there is thrown. Both are kept on purpose.
int BasicParser::parseArgsVector(int argc, char** argv, IParseResult* result) {
    if (result != nullptr) implementationOf(result)->applyDefault(storage);
    if (argc < 2) return 0;
    try {
        ArgumentList args;
        TextArena copies;
        if (!takeOver(args, argc, argv, handlers.empty() ? nullptr : &copies)) return exceptionCaught;
        return parseVector(args, result);
    } catch (const std::exception&) {
        return exceptionCaught;
    }
}

int BasicParser::parseVector(ArgumentList& args, IParseResult* result) {
    try {
        std::string error;
        int code = parse(endOfOptions, args, result, error);
        if (code == 0) code = collectNonparsingArguments(endOfOptions, args, implementationOf(result), error);
        // A very long text is not copied; a short one leaves the room for the fixed texts where it is.
        if (code != 0) error.capacity() > lastError.capacity() ? lastError.swap(error) : setLastError(error);
        return code;
    } catch (const std::exception&) {
        setLastError("Unidentified problem detected.");
        return exceptionInParse;
    }
}

// The log switch counts only as the first argument. It stays as it is until the next parse, so that help texts in
// between are logged, too.
int BasicParser::parse(std::string_view terminator, ArgumentList& args, IParseResult* result,
                       std::string& error) {
    vornLogEnabled = !args.empty() && args.front() == logSwitch;
    if (vornLogEnabled) args.removeFront();

    Recognisers recognisers(recogniserContext(flags), nameSearch);
    IResultCollector* collector = implementationOf(result);
    while (!args.empty() && args.front() != terminator) {
        if (IArgumentParser* recogniser = recognisers.choose(args, storage)) {
            const int code = recogniser->parse(args, collector, storage, error);
            if (code != 0) return code;
        } else if (isUnknown(args.front(), error)) {
            return invalidArgument;
        } else {
            logLine("ignoring ", args.front());
            args.removeFront();
        }
    }
    return 0;
}

// Whether the argument that nobody takes is an error. Handlers are asked in any case; one that has dealt with
// the argument makes it none.
bool BasicParser::isUnknown(std::string_view argument, std::string& error) {
    const bool unhandled = handlers.empty() || handlers.onUknownArgument(argument.data());
    if ((flags & unknownIsError) == 0 || !unhandled) return false;
    error = joined({"Unknown option: ", argument});
    return true;
}

}  // namespace vorn_3_1
