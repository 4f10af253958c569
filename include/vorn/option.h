// The builder of one registered option.
//
//     parser->option("mode,m", "How to work.", tamsu2::qel_string, "")
//         ->allowValue("fast")->allowValue("full")->defaultValue("full");
#ifndef VORN_OPTION_H
#define VORN_OPTION_H

#include "tamsu2/variant.h"

namespace vorn_3_1 {

/// Adds to the option that IParser::option has just registered. Slot order is contract.
///
/// Every operation returns this builder, so calls chain. Nothing is checked: neither a value's kind
/// against the option's type, nor a synonym against other names. Texts and values are copied. An
/// operation that runs out of memory leaves the option as it was.
///
/// The parser owns the builder. It is valid until the next IParser::option call, so finish one option
/// before registering the next; a host never deletes it.
class IOption {
public:
    /// Adds a further name, which the user may type and a query may ask for. Null counts as "".
    virtual IOption* synonym(const char* name) = 0;

    /// Adds an allowed value. Once there is one, no other value is accepted; on an option of type 12
    /// the user may type an unambiguous beginning of it.
    virtual IOption* allowValue(const tamsu2::variant_t& value) = 0;

    /// Sets the default value, replacing an earlier one. IParser::parseArgsVector records it in the
    /// result; IParser::parseStream does not. A string default of "" counts as no default.
    virtual IOption* defaultValue(const tamsu2::variant_t& value) = 0;

    /// Sets the character at which one argument's text is cut into several values. It is ',' until
    /// set; the NUL character means that the text is never cut.
    virtual IOption* tokenize(char separator) = 0;

    /// Makes the option take arguments that name no option. Only the first positional option in
    /// order of registration ever receives any; the help text lists none of them.
    virtual IOption* positional() = 0;

    virtual ~IOption() = default;
};

}  // namespace vorn_3_1

#endif
