// What a named option's value is, and every way of misusing an option.
//
//     kind of option      argument        value
//     switch              --name          "1"; "0" for the "no-" form
//                         --name=text     misuse
//     without value       --name          none
//                         --name=text     misuse
//     any other           --name=text     the text
//                         --name text     the text; both arguments are removed
//                         --name -text    misuse
//                         --name          misuse
//
// "--name=" is like "--name": an empty value counts as none, so the next argument may be the value.
#include "recognisers/abbreviation_parser.h"

#include <utility>

#include "base/diagnostic_log.h"
#include "options/registered_option_storage.h"
#include "text/joined_text.h"

namespace vorn_3_1::internal {

namespace {
constexpr std::string_view howToDeclare =
    "Use '-option=value' declaration form or make sure that value is not missed";
}

// An ambiguous name is refused here and not in recognize, where no error can be reported: saying "not taken" would
// make a positional argument of it, or an unknown one.
int AbbreviationParser::parse(ArgumentList& args, IResultCollector* collector,
                              const RegisteredOptionStorage& storage, std::string& msg) {
    const std::string_view argument = args.front();
    logLine(name, ": parsing argument '", argument, "'");
    if (bestMatches.size() > 1) {
        msg = joined({"Ambiguous option '", token.name, "'", formatTokenMessage(argument),
                      ", could be: ", listOfBestNames(storage.index())});
        return invalidArgument;
    }
    // The matched name decides, so a switch whose own name begins with "no-" is switched off by it.
    const RegisteredName& matched = storage.index().names()[bestMatches[0].name];
    const bool switchedOff = bestMatches[0].negated || matched.key().starts_with(negation);
    return withSnapshotOf(storage.description(matched.option), [&](const OptionDescription& option) {
        return parseAs(option, switchedOff, args, collector, msg);
    });
}

// Finds the value, tells the handlers, stores, removes, in this order: handlers hear of an option before its value is
// checked, and an argument that failed is still the first of the list.
int AbbreviationParser::parseAs(const OptionDescription& option, bool switchedOff, ArgumentList& args,
                                IResultCollector* collector, std::string& msg) {
    logLine(name, ": detected option: '", option.firstName(), "'");

    ValueSource value{token.value};
    if (token.hasValue) logLine(name, ": value from the same argument taken: '", value.text, "'");
    int code = findValue(args, option, switchedOff, value, msg);
    if (code != 0) return code;

    announceOption(option);
    logLine(name, ": sent event on option parsed");
    code = parseValueAndAddOption(value.text, msg, option, args, collector);
    if (code != 0) return code;

    for (; value.arguments > 0; --value.arguments) {
        logLine(name, ": removing argument: '", args.front(), "'");
        args.removeFront();
    }
    return 0;
}

// Sets `value`, or words the misuse: the table above.
int AbbreviationParser::findValue(const ArgumentList& args, const OptionDescription& option, bool switchedOff,
                                  ValueSource& value, std::string& msg) const {
    const std::string_view firstName = option.firstName();
    if (option.type() == tamsu2::qel_empty) {
        if (value.text.empty()) return 0;
        // Kept on purpose: no blank before "does", and the grammar.
        return reportMisuse(
            joined({"Option '", firstName, "'does not requires a value", formatTokenMessage(args.front())}),
            msg);
    }
    if (!option.isSwitch()) return value.text.empty() ? takeNextArgument(args, firstName, value, msg) : 0;
    if (!value.text.empty()) {
        return reportMisuse(joined({"Option '", firstName,
                                    "' is boolean and should be declared in form '--option' or '--no-option'",
                                    formatTokenMessage(args.front())}),
                            msg);
    }
    value.text = switchedOff ? "0" : "1";
    return 0;
}

// A value with a hyphen in front needs the "=" form, numbers too: "--level=-5". Otherwise a forgotten value would
// swallow the option behind it.
int AbbreviationParser::takeNextArgument(const ArgumentList& args, std::string_view firstName,
                                         ValueSource& value, std::string& msg) const {
    logLine(name, ": no value in the same argument, looking next");
    const std::string_view next = args.size() > 1 ? args.second() : std::string_view();
    if (next.starts_with('-')) {
        // Kept on purpose: no closing quote and blank behind the name.
        return reportMisuse(joined({"Option '", firstName, "received value from the next argument: '", next,
                                    "', but it seems to be an option. ", howToDeclare}),
                            msg);
    }
    if (args.size() > 1) logLine(name, ": got value from the next argument: '", next, "'");
    if (next.empty()) {
        return reportMisuse(
            joined({"Option '", firstName, "' requires a value", formatTokenMessage(args.front())}), msg);
    }
    value = {next, 2};
    return 0;
}

// Returns the code, so that callers can report and return in one step.
int AbbreviationParser::reportMisuse(std::string text, std::string& msg) const {
    msg = std::move(text);
    logLine(name, ": ", msg);
    return invalidArgument;
}

}  // namespace vorn_3_1::internal
