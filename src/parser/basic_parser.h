// The parser. Its parse operations live in driver/, its help text in help/.
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

class BasicParser : public IParser {
public:
    explicit BasicParser(int parserFlags);
    BasicParser(const BasicParser&) = delete;
    BasicParser& operator=(const BasicParser&) = delete;

    // The events, for a host that raises them itself; what its handlers throw stops here, as false.
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
    /// becomes the last error.
    virtual int parseVector(internal::ArgumentList& args, IParseResult* result);

    /// The recogniser loop. Ends when the list is empty or begins with the terminator, or at the first
    /// failure, whose text is then in `error`.
    virtual int parse(std::string_view terminator, internal::ArgumentList& args, IParseResult* result,
                      std::string& error);

    void setLastError(std::string_view text);

    /// Wraps the text into a column behind the prefix. Lines are indented by `indent` blanks, the first one
    /// by the prefix and what it lacks of that; a line has room for `width` - 1 characters of text. Every
    /// line ends with a line feed; an empty text gives an empty result.
    static std::string paragraphString(std::string_view text, std::string prefix, unsigned indent,
                                       unsigned width);

private:
    int collectNonparsingArguments(std::string_view terminator, internal::ArgumentList& args,
                                   internal::ParseResult* result, std::string& error);
    int offerToPositional(std::string_view argument, internal::ParseResult* result, std::string& error);
    bool isUnknown(std::string_view argument, std::string& error);
    internal::RecogniserContext recogniserContext(int recogniserFlags);
    std::string helpText(bool hidden);

    internal::Garbage garbage;
    internal::RegisteredOptionStorage storage;
    std::string lastError;
    int flags;
    internal::HandlerSet handlers;
    internal::NameSearch nameSearch;  // what the recognisers derive from the registry, kept between parses
};

}  // namespace vorn_3_1

#endif
