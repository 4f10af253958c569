// What all recognisers have in common. A recogniser is one strategy for reading options out of the
// argument list; every parse builds its own.
//
// There are two: AbbreviationParser for named options, PositionalOptionsParser for the rest. Each finds out which
// option an argument belongs to, and what its value is. From there on they go the same way, which is written here once:
//
//     --list=a,b                        a recogniser finds the option list and the value "a,b"
//       announceOption                  the handlers hear of list
//       parseValueAndAddOption          cuts "a,b"; for each item:
//         addItem                       validates it, draws its position, asks the handlers
//       collector->store                one occurrence with two values
#ifndef VORN_RECOGNISERS_ARGUMENT_PARSER_H
#define VORN_RECOGNISERS_ARGUMENT_PARSER_H

#include <string>
#include <string_view>

#include "base/position_counter.h"
#include "base/result_codes.h"
#include "options/option_description.h"
#include "recognisers/argument_list.h"
#include "result/option_data.h"
#include "vorn/parser.h"

namespace vorn_3_1::internal {

class Garbage;
class IResultCollector;
class RegisteredOptionStorage;

/// What the parser gives its recognisers. Nothing of it is owned.
struct RecogniserContext {
    EventHandler* events;  // hands them on to the host's handlers; null when nobody listens
    Garbage* garbage;      // keeps the texts that events hand out
    int flags;
};

/// One recogniser. The parser asks it with recognize, and then calls parse, for the same argument.
class IArgumentParser {
public:
    /// The counter that orders everything on the command line.
    static constexpr unsigned& m_idx = positionCounter;

    /// 0 when this recogniser takes the front argument; removes nothing. May remember what it found for the
    /// parse that follows.
    virtual int recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                          std::string& msg) = 0;

    /// Parses what recognize has just taken: stores it in the collector (which may be null), and removes the
    /// consumed arguments. Other than 0, `msg` says what is wrong and the argument stays.
    virtual int parse(ArgumentList& args, IResultCollector* collector, const RegisteredOptionStorage& storage,
                      std::string& msg) = 0;

    /// Where an error is: " in argument: 'token'".
    virtual std::string formatTokenMessage(std::string_view token) const;

    /// Among the recognisers that take an argument, the highest one parses it.
    virtual int getPriority() const = 0;

protected:
    IArgumentParser(const char* ownName, const RecogniserContext& parser) : name(ownName), context(parser) {}
    ~IArgumentParser() = default;  // lives in automatic storage

    /// The step behind every recogniser: cuts the value at the option's separator, converts and validates
    /// each item, announces it, and stores one occurrence. `value` is followed by a NUL; empty, it makes an
    /// occurrence without values. Nothing is stored unless all items pass; then the result is 0.
    int parseValueAndAddOption(std::string_view value, std::string& msg, const OptionDescription& option,
                               const ArgumentList& args, IResultCollector* collector);

    /// Calls `parse` with the option as it is now: a handler may change the option, or register others, while it
    /// is parsed. Where nobody listens no copy is made.
    template <class Parse>
    int withSnapshotOf(const OptionDescription& registered, Parse parse) const {
        return context.events == nullptr ? parse(registered) : parse(OptionDescription(registered));
    }

    /// Raises onOptionParse with the option's first name.
    void announceOption(const OptionDescription& option) const;

    const char* name;  // begins this recogniser's log lines
    RecogniserContext context;

private:
    // The steps of parseValueAndAddOption. Each returns 0, or the code to end with.
    int addValue(std::string_view value, std::string& msg, const OptionDescription& option,
                 const ArgumentList& args);
    int addItems(std::string_view value, std::string& msg, const OptionDescription& option,
                 const ArgumentList& args);
    int addItem(std::string_view item, std::string_view value, std::string& msg,
                const OptionDescription& option, const ArgumentList& args);
    bool announceValue(std::string_view item, const OptionDescription& option, ValueRecord& record) const;

    OptionData occurrence;  // kept between arguments for its memory only
};

}  // namespace vorn_3_1::internal

#endif
