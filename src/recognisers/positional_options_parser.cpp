#include "recognisers/positional_options_parser.h"

#include "base/diagnostic_log.h"
#include "options/registered_option_storage.h"

namespace vorn_3_1::internal {

PositionalOptionsParser::PositionalOptionsParser(const RecogniserContext& parser)
    : IArgumentParser("PositionalOptionsParser", parser) {}

int PositionalOptionsParser::recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                                       std::string&) {
    const std::string_view argument = args.front();
    logLine(name, ": recognizing argument '", argument, "'");
    if ((context.flags & hyphenNotPositional) != 0 && argument.starts_with('-')) return 1;
    return storage.index().firstPositional() == none ? 1 : 0;
}

int PositionalOptionsParser::parse(ArgumentList& args, IResultCollector* collector,
                                   const RegisteredOptionStorage& storage, std::string& msg) {
    logLine(name, ": parsing argument '", args.front(), "'");
    return withSnapshotOf(
        storage.description(storage.index().firstPositional()),
        [&](const OptionDescription& option) { return parseAs(option, args, collector, msg); });
}

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
