// The record of one registered option, which is also the builder that the host gets.
//
// A registration fixes names, description, type and group. Then the host goes on with the builder:
//
//     parser->option("level,l", "How hard to try.", tamsu2::qel_int, "general")->defaultValue(5)->synonym("effort");
//
// The registry makes the records and keeps them. Recognisers ask a record for what they need to take a value, results
// for its names and its default, the help for all of it. The names themselves stand in the registry's index: the record
// knows its first and last one, and each name knows the next.
//
// Bodies: option_description.cpp has the builder, value_conversion.cpp texts and values, value_validation.cpp what the
// option accepts.
#ifndef VORN_OPTIONS_OPTION_DESCRIPTION_H
#define VORN_OPTIONS_OPTION_DESCRIPTION_H

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "options/option_index.h"
#include "tamsu2/variant.h"
#include "text/garbage.h"
#include "vorn/option.h"

namespace vorn_3_1::internal {

/// What an option and its registry tell each other of. Lives in the registry.
struct OptionContext {
    OptionIndex index;
    TextArena texts;
    Garbage* garbage;  // the parser's; not owned
};

/// What a registration fixes; the builder adds the rest.
struct Registration {
    std::string_view description;
    unsigned group = 0;  // number in the registry
    tamsu2::qel_variant_type_t type = tamsu2::qel_empty;
};

/// A copy costs next to nothing, and stays as it is when the builder changes the option: recognisers take one
/// where a handler may change the very option that is being parsed.
class OptionDescription final : public IOption {
public:
    /// Without a context it is the registry's fallback, which nothing changes.
    OptionDescription() = default;
    OptionDescription(const Registration& registration, unsigned ownNumber, OptionContext& registry)
        : registered(registration), number(ownNumber), context(&registry) {}

    IOption* synonym(const char* name) override;
    IOption* allowValue(const tamsu2::variant_t& value) override;
    IOption* defaultValue(const tamsu2::variant_t& value) override;
    IOption* tokenize(char separator) override;
    IOption* positional() override;

    /// Adds a name, whose text the registry keeps. There has to be room for it in the index.
    void addName(std::string_view name, std::uint32_t hash) noexcept;

    /// Throws std::out_of_range when the option has no names.
    const RegisteredName& firstOfNames() const {
        const std::vector<RegisteredName>& all = context->index.names();
        // at() is a call, and made only where it is to throw.
        // cppcheck-suppress containerOutOfBounds
        return nameCount == 0 ? all.at(none) : all[firstNumber];
    }
    /// The same as a text, which is followed by a NUL.
    std::string_view firstName() const { return firstOfNames().key(); }
    /// Calls `use` with every name, in the order in which they were added.
    template <class Use>
    void eachName(Use use) const {
        unsigned name = firstNumber;
        for (unsigned left = nameCount; left > 0; --left) {
            const RegisteredName& current = context->index.names()[name];
            use(current);
            name = current.next;
        }
    }
    unsigned group() const { return registered.group; }
    std::string_view description() const { return registered.description; }
    bool isPositional() const { return takesPositional; }
    bool hasDefault() const { return values != nullptr && values->byDefault.has_value(); }
    bool isSwitch() const { return registered.type == tamsu2::qel_bool; }
    char separator() const { return separatorCharacter; }
    tamsu2::qel_variant_type_t type() const { return registered.type; }
    /// Only where there is one.
    const tamsu2::variant_t& defaultValue() const { return *values->byDefault; }
    std::span<const tamsu2::variant_t> allowedValues() const {
        return values == nullptr ? std::span<const tamsu2::variant_t>() : values->allowed;
    }
    Garbage* garbage() const { return context->garbage; }

    /// Identifies this list of names: no two lists of the process ever have the same number, and never 0.
    std::uint64_t nameListId() const { return listId; }

    /// 0 for a registered option; on the registry's fallback, the code of the last refused registration.
    std::int32_t status = 0;

    /// The type's name in messages and headings; boolean is deliberately "undefined".
    std::string getTypeName() const;

    /// The text, up to its first NUL, as a value of the option's type; empty (kind 17) when it is none.
    tamsu2::variant_t fromString(std::string_view text) const;

    /// The value as text, kept by `target`; "" for a type without conversion.
    const char* toString(Garbage* target, const tamsu2::variant_t& value) const;

    /// Whether the option accepts the text. True: `value` holds it (but stays empty on type 12, where the
    /// text itself is the value and nobody may want a copy), and `text` has become the whole allowed value
    /// where it was a beginning of one, which lives in this option. False: `error` says why, and `value`
    /// is not to be used.
    bool validate(std::string_view& text, tamsu2::variant_t& value, std::string& error) const;

private:
    // What few options have. Copies of the description share it until the builder changes it.
    struct Values {
        std::optional<tamsu2::variant_t> byDefault;
        std::vector<tamsu2::variant_t> allowed;
    };

    // The text holds no NUL, or is one: then it is no number, as "" is none.
    bool convert(std::string_view text, tamsu2::variant_t& value) const;

    // What all builder operations have in common.
    template <class Change>
    IOption* changeWhole(Change change);
    // The values, to be changed: made where there are none, copied where another description shares them.
    Values& ownValues();
    // The steps of validate; value_validation.cpp.
    bool isAllowed(std::string_view text, const tamsu2::variant_t& value) const;
    unsigned expandBeginning(std::string_view& text) const;
    std::string listOfAllowedValues() const;

    Registration registered;
    unsigned number = none;
    unsigned firstNumber = none;  // of its names
    unsigned lastNumber = none;
    unsigned nameCount = 0;
    bool takesPositional = false;
    char separatorCharacter = ',';
    std::uint64_t listId = 0;
    std::shared_ptr<Values> values;  // null until there are any
    OptionContext* context = nullptr;
};

}  // namespace vorn_3_1::internal

#endif
