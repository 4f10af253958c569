// Every argument that is taken makes an occurrence of the positional option of its own:
//
//     tool a,b c     occurrence with the values "a" and "b", occurrence with the value "c"
#include "recognisers/positional_options_parser.h"

#include "base/diagnostic_log.h"
#include "options/registered_option_storage.h"

namespace vorn_3_1::internal {

PositionalOptionsParser::PositionalOptionsParser(const RecogniserContext& parser)
    : IArgumentParser("PositionalOptionsParser", parser) {}

// Takes anything as long as there is a positional option; whether it is a good value is for parse to say.
int PositionalOptionsParser::recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                                       std::string&) {
    const std::string_view argument = args.front();
    logLine(name, ": recognizing argument '", argument, "'");
    if ((context.flags & hyphenNotPositional) != 0 && argument.starts_with('-')) return 1;
    return storage.index().firstPositional() == none ? 1 : 0;
}

// The option may change while handlers hear of it, so a copy is parsed: see withSnapshotOf.
int PositionalOptionsParser::parse(ArgumentList& args, IResultCollector* collector,
                                   const RegisteredOptionStorage& storage, std::string& msg) {
    logLine(name, ": parsing argument '", args.front(), "'");
    return withSnapshotOf(
        storage.description(storage.index().firstPositional()),
        [&](const OptionDescription& option) { return parseAs(option, args, collector, msg); });
}

// One argument, or all that are left. A failure ends it with the argument still in the list.
int PositionalOptionsParser::parseAs(const OptionDescription& option, ArgumentList& args,
                                     IResultCollector* collector, std::string& msg) {
    logLine(name, ": option is '", option.firstName(), "'");
    do {
        announceOption(option);
        const int code = parseValueAndAddOption(args.front(), msg, option, args, collector);
        if (code != 0) return code;
        logLine(name, ": removing argument: '", args.front(), "'");
        args.removeFront();
    } while (!args.empty() && (context.flags & positionalRepeat) != 0);
    return 0;
}

}  // namespace vorn_3_1::internal
