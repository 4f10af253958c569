// The recogniser of named options.
//
// The loop in parse_driver.cpp asks recognize, and calls parse when the answer is yes. With a number option "level", a
// switch "verbose" and an option "help" without a value:
//
//     front of the list   taken   option    value     removed
//     --lev=5             yes     level     "5"       --lev=5
//     -level 5            yes     level     "5"       -level and 5
//     --no-v              yes     verbose   "0"       --no-v
//     --help              yes     help      none      --help
//     --other             no
//     file                no
//
// abbreviation_matching.cpp finds the option, abbreviation_parser.cpp its value.
#ifndef VORN_RECOGNISERS_ABBREVIATION_PARSER_H
#define VORN_RECOGNISERS_ABBREVIATION_PARSER_H

#include <string>
#include <string_view>
#include <vector>

#include "recognisers/argument_parser.h"
#include "recognisers/name_search.h"

namespace vorn_3_1::internal {

/// Takes arguments that begin with '-' and name an option, every word of whose name may be shortened. An
/// ambiguous name counts as taken too, so that parse reports it.
class AbbreviationParser final : public IArgumentParser {
public:
    /// The search outlives the recogniser.
    AbbreviationParser(const RecogniserContext& parser, NameSearch& nameSearch);

    int recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                  std::string& msg) override;
    int parse(ArgumentList& args, IResultCollector* collector, const RegisteredOptionStorage& storage,
              std::string& msg) override;
    int getPriority() const override { return -10; }

private:
    // The parts of an argument.
    struct Token {
        explicit Token(std::string_view argument);

        std::string_view name;
        std::string_view value;  // what follows the first '='; empty when there is none
        bool hasValue;           // whether there is a '='
    };

    // An option's value, and how many arguments it takes together with its option.
    struct ValueSource {
        std::string_view text;
        int arguments = 1;
    };

    // Matching.
    void findBest(const OptionIndex& index);
    static std::string nameOf(const NameMatch& match, const OptionIndex& index);
    std::string listOfBestNames(const OptionIndex& index) const;

    // Parsing.
    int parseAs(const OptionDescription& option, bool switchedOff, ArgumentList& args,
                IResultCollector* collector, std::string& msg);
    int findValue(const ArgumentList& args, const OptionDescription& option, bool switchedOff,
                  ValueSource& value, std::string& msg) const;
    int takeNextArgument(const ArgumentList& args, std::string_view firstName, ValueSource& value,
                         std::string& msg) const;
    int reportMisuse(std::string text, std::string& msg) const;

    NameSearch& search;
    // What recognize leaves for the parse that follows it.
    Token token{{}};
    std::vector<NameMatch> bestMatches;  // one, unless the name is ambiguous
};

}  // namespace vorn_3_1::internal

#endif
