// The recogniser of arguments that name no option.
//
// The loop in parse_driver.cpp asks it for every argument, and takes its yes only when no named option is found.
// pass_through_arguments.cpp asks it for what follows "--". With a positional option "file":
//
//     a         a value of file
//     -x        likewise; under hyphenNotPositional it is not taken
//     a -x b    under positionalRepeat, all three are values of file
#ifndef VORN_RECOGNISERS_POSITIONAL_OPTIONS_PARSER_H
#define VORN_RECOGNISERS_POSITIONAL_OPTIONS_PARSER_H

#include <string>

#include "recognisers/argument_parser.h"

namespace vorn_3_1::internal {

/// Binds arguments to the positional option that was registered first; later ones never receive any.
class PositionalOptionsParser final : public IArgumentParser {
public:
    explicit PositionalOptionsParser(const RecogniserContext& parser);

    int recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                  std::string& msg) override;

    /// Under positionalRepeat it takes all arguments there are, whatever they look like.
    int parse(ArgumentList& args, IResultCollector* collector, const RegisteredOptionStorage& storage,
              std::string& msg) override;

    int getPriority() const override { return -100; }

private:
    int parseAs(const OptionDescription& option, ArgumentList& args, IResultCollector* collector,
                std::string& msg);
};

}  // namespace vorn_3_1::internal

#endif
