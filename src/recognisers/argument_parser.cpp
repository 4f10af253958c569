// The way of a value, from its text in the argument to the result: cut, validated, announced, stored.
//
// An option takes all its values or none. With the list "a,b,c" where "b" is refused:
//
//     a    valid, announced        b    refused: the parse ends        c    never looked at
//
// and the result hears of nothing, though a handler has seen "a".
#include "recognisers/argument_parser.h"

#include <utility>

#include "base/diagnostic_log.h"
#include "result/result_collector.h"
#include "text/garbage.h"
#include "text/joined_text.h"
#include "text/separated_text.h"

namespace vorn_3_1::internal {

std::string IArgumentParser::formatTokenMessage(std::string_view token) const {
    return joined({" in argument: '", token, "'"});
}

void IArgumentParser::announceOption(const OptionDescription& option) const {
    if (context.events != nullptr) context.events->onOptionParse(option.firstName().data());
}

// The occurrence draws its position before its values do, so a query for what comes after the occurrence finds them.
// A failure leaves a gap in the positions, which nobody minds.
int IArgumentParser::parseValueAndAddOption(std::string_view value, std::string& msg,
                                            const OptionDescription& option, const ArgumentList& args,
                                            IResultCollector* collector) {
    occurrence.position = nextPosition();
    occurrence.values.clear();
    if (!value.empty()) {
        logLine(name, ": adding values to result container:");
        const bool isList = option.separator() != '\0';
        const int code = isList ? addItems(value, msg, option, args) : addValue(value, msg, option, args);
        if (code != 0) return code;
    }
    if (collector != nullptr) collector->store(option, occurrence);
    logLine(name, ": stored option to result container.");
    return 0;
}

// An option whose separator is NUL takes the text whole.
int IArgumentParser::addValue(std::string_view value, std::string& msg, const OptionDescription& option,
                              const ArgumentList& args) {
    logLine(name, ": not using tokenizer");
    return addItem(value, value, msg, option, args);
}

// The last log line is written for a list only, and without any handler, too: kept on purpose.
int IArgumentParser::addItems(std::string_view value, std::string& msg, const OptionDescription& option,
                              const ArgumentList& args) {
    const char separator = option.separator();
    logLine(name, ": using tokenizer on char: '", std::string_view(&separator, 1), "'");
    SeparatedText items(value, separator);
    for (std::string_view item; items.next(item);) {
        logLine(name, ": value is: '", item, "'");
        const int code = addItem(item, value, msg, option, args);
        if (code != 0) return code;
        logLine(name, ": sent event on value parsed, option: '", option.firstName(), "', value: '", item,
                "'");
    }
    return 0;
}

// `item` is what is checked, `value` all that the user typed. They differ in a list. Validation may lengthen the text
// to a whole allowed value.
int IArgumentParser::addItem(std::string_view item, std::string_view value, std::string& msg,
                             const OptionDescription& option, const ArgumentList& args) {
    ValueRecord& record = occurrence.values.emplace_back();
    record.text = item;
    if (!option.validate(record.text, record.value, msg)) {
        msg = joined({"Value validation problem in argument '", args.front(), "': ", msg});
        logLine(name, ": ", msg);
        return invalidArgument;
    }
    record.position = nextPosition();
    if (context.events == nullptr || announceValue(item, option, record)) return 0;

    // The message quotes the whole value, and its log line runs on from the recogniser's name: both kept.
    msg = joined({"Value '", value, "' is not valid for option '", option.firstName(), "' in argument '",
                  args.front(), "'"});
    logLine(name, msg, " One of the handler signaled the value is not valid.");
    return refusedByHandler;
}

// The event shows the text as it was typed, though the typed value may be the allowed value that it begins.
// A text's typed value is made for the event alone: a result makes its own when it is asked.
bool IArgumentParser::announceValue(std::string_view item, const OptionDescription& option,
                                    ValueRecord& record) const {
    const bool isText = option.type() == tamsu2::qel_string;
    const std::string_view typed = item.substr(0, item.find('\0'));
    Value value{context.garbage->keep(typed).data(), 0, record.position,
                isText ? option.fromString(record.text) : std::move(record.value)};
    const bool accepted = context.events->onValueParse(option.firstName().data(), value);
    if (!isText) record.value = std::move(value.value);
    return accepted;
}

}  // namespace vorn_3_1::internal
