// The parser: the object behind IParser, and the top of the house.
//
// It owns what belongs to one parser (the registered options, the texts that it hands out, the last error, the
// host's handlers) and does little itself. Its operations have a source file for each task:
//
//     basic_parser.cpp             creating, registering, handlers, last error
//     parse_driver.cpp             parseArgsVector and the loop over the arguments; "Unknown option"
//     command_text.cpp             parseStream: arguments from a text
//     pass_through_arguments.cpp   what follows "--"
//     help_text.cpp                getDescription: groups, names and value syntax
//     paragraph_string.cpp         the wrapping of words in the help
//
// A command line's way through the library, for the argument "--lev=5":
//
//     parse_driver                      takes the arguments over, asks the recognisers who takes "--lev=5"
//     recognisers/abbreviation_parser   finds that "lev" can only mean the option "level", and that "5" is its value
//     options/value_validation          makes the text a number, and compares it with the allowed values
//     parser/handler_set                asks the host's handlers whether they accept 5
//     result/parse_result               stores one occurrence of "level" with its value
#ifndef VORN_PARSER_BASIC_PARSER_H
#define VORN_PARSER_BASIC_PARSER_H

#include <string>
#include <string_view>

#include "options/registered_option_storage.h"
#include "parser/handler_set.h"
#include "recognisers/argument_list.h"
#include "recognisers/argument_parser.h"
#include "recognisers/name_search.h"
#include "text/garbage.h"
#include "vorn/parser.h"

namespace vorn_3_1 {

namespace internal {
class ParseResult;
}

/// What hosts call stands in IParser, and the comments there hold. The two operations that are virtual beside
/// those of IParser follow them in the table of virtual operations, in this order.
class BasicParser : public IParser {
public:
    explicit BasicParser(int parserFlags);
    BasicParser(const BasicParser&) = delete;
    BasicParser& operator=(const BasicParser&) = delete;

    // The events, raised by a host itself or by another parser whose handler this one is. What this parser's
    // handlers throw passes through, so that the parse that raised the event reports it.
    bool onOptionParse(const char* name) override;
    bool onValueParse(const char* name, const Value& value) override;
    bool onUknownArgument(const char* argument) override;

    void destroy() override;
    int createResult(IParseResult** out) override;
    IOption* option(const char* names, const char* description, tamsu2::qel_variant_type_t type,
                    const char* group) override;
    int parseArgsVector(int argc, char** argv, IParseResult* result) override;
    int parseStream(const char* text, IParseResult* result) override;
    const char* getErrorDesc() override;
    const char* getDescription(bool hidden) override;
    bool addHandler(EventHandler* handler) override;
    bool removeHandler(EventHandler* handler) override;
    ~BasicParser() override = default;

    /// Runs the recognisers over the arguments, then keeps those that follow "--". On failure the error text
    /// becomes the last error. A std::exception on the way gives 4.
    virtual int parseVector(internal::ArgumentList& args, IParseResult* result);

    /// The loop over the arguments. Ends when the list is empty or begins with the terminator, or at the first
    /// failure, whose text is then in `error`; the argument that failed stays first in the list.
    virtual int parse(std::string_view terminator, internal::ArgumentList& args, IParseResult* result,
                      std::string& error);

    /// Replaces what getErrorDesc says.
    void setLastError(std::string_view text);

    /// Wraps the text into a column behind the prefix. Lines are indented by `indent` blanks, the first one
    /// by the prefix and what it lacks of that; a line has room for `width` - 1 characters of text. Every
    /// line ends with a line feed; an empty text gives an empty result.
    ///
    ///     paragraphString("the text wraps", "-a", 5, 11)      "-a   the text\n"
    ///                                                         "     wraps\n"
    static std::string paragraphString(std::string_view text, std::string prefix, unsigned indent,
                                       unsigned width);

private:
    int collectNonparsingArguments(std::string_view terminator, internal::ArgumentList& args,
                                   internal::ParseResult* result, std::string& error);
    int offerToPositional(std::string_view argument, internal::ParseResult* result, std::string& error);
    bool isUnknown(std::string_view argument, std::string& error);
    internal::RecogniserContext recogniserContext(int recogniserFlags);
    std::string helpText(bool hidden);

    internal::Garbage garbage;  // keeps the texts of events, errors and help
    internal::RegisteredOptionStorage storage;
    std::string lastError;
    int flags;
    internal::HandlerSet handlers;
    internal::NameSearch nameSearch;  // what the recognisers derive from the registry, kept between parses
};

}  // namespace vorn_3_1

#endif
