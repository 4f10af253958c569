// The record of one registered option, which is also the builder that the host gets.
#ifndef VORN_OPTIONS_OPTION_DESCRIPTION_H
#define VORN_OPTIONS_OPTION_DESCRIPTION_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "options/option_index.h"
#include "tamsu2/variant.h"
#include "text/garbage.h"
#include "vorn/option.h"

namespace vorn_3_1::internal {

/// A name with its hash. The registry keeps the text, which is followed by a NUL.
using OptionName = TextEntry;

/// What a registration fixes; the builder adds the rest.
struct Registration {
    std::vector<OptionName> names;
    std::string_view description;
    unsigned group = 0;  // index in the registry
    tamsu2::qel_variant_type_t type = tamsu2::qel_empty;
};

/// Where a description reports what the registry derives from it. Not owned; both live in the registry.
struct RegistryLink {
    OptionIndex* index = nullptr;  // null in the registry's fallback
    TextArena* texts = nullptr;
    unsigned option = 0;
};

/// Copies share one record until a builder operation gives the description a record of its own. So the copy
/// that a recogniser takes costs next to nothing, and stays as it was when a handler shapes the very
/// option that is being parsed.
class OptionDescription final : public IOption {
public:
    OptionDescription(Registration registration, Garbage* textKeeper, const RegistryLink& registryLink);

    IOption* synonym(const char* name) override;
    IOption* allowValue(const tamsu2::variant_t& value) override;
    IOption* defaultValue(const tamsu2::variant_t& value) override;
    IOption* tokenize(char separator) override;
    IOption* positional() override;

    const std::vector<OptionName>& names() const { return record->names; }
    /// Followed by a NUL. Throws std::out_of_range when the option has no names.
    std::string_view firstName() const {
        // at() is a call, and made only where it is to throw.
        // cppcheck-suppress containerOutOfBounds
        return (names().empty() ? names().at(0) : names().front()).key();
    }
    unsigned group() const { return record->group; }
    std::string_view description() const { return record->description; }
    bool isPositional() const { return record->isPositional; }
    bool hasDefault() const { return record->hasDefault; }
    bool isSwitch() const { return record->type == tamsu2::qel_bool; }
    char tokenizer() const { return record->tokenizer; }
    tamsu2::qel_variant_type_t type() const { return record->type; }
    const tamsu2::variant_t& defaultValue() const { return record->defaultValue; }
    const std::vector<tamsu2::variant_t>& allowedValues() const { return record->allowedValues; }
    Garbage* keeper() const { return record->keeper; }

    /// Identifies this list of names: no two lists of the process ever have the same number, and never 0.
    std::uint64_t nameListId() const { return record->nameListId; }

    /// 0 for a registered option; on the registry's fallback, the code of the last refused registration.
    std::int32_t status = 0;

    /// The type's name in messages and headings; boolean is deliberately "undefined".
    std::string getTypeName() const;

    /// The text, up to its first NUL, as a value of the option's type; empty (kind 17) when it is none.
    tamsu2::variant_t fromString(std::string_view text) const;

    /// The value as text, kept by the keeper; "" for a type without conversion.
    const char* toString(Garbage* textKeeper, const tamsu2::variant_t& value) const;

    /// Whether the option accepts the text. True: `value` holds it (but stays empty on type 12, where the
    /// text itself is the value and nobody may want a copy), and `text` has become the whole allowed value
    /// where it was a beginning of one, which lives in this option. False: `error` says why, and `value`
    /// is not to be used.
    bool validate(std::string_view& text, tamsu2::variant_t& value, std::string& error) const;

private:
    struct Record : Registration {
        Record(Registration registration, Garbage* textKeeper);

        bool isPositional = false;
        bool hasDefault = false;
        char tokenizer = ',';
        tamsu2::variant_t defaultValue;
        std::vector<tamsu2::variant_t> allowedValues;
        Garbage* keeper;
        std::uint64_t nameListId;
    };

    // The text holds no NUL, or is one: then it is no number, as "" is none.
    bool convert(std::string_view text, tamsu2::variant_t& value) const;

    template <class Change>
    IOption* shape(Change change);
    Record& ownRecord();
    bool isAllowed(std::string_view text, const tamsu2::variant_t& value) const;
    unsigned expandBeginning(std::string_view& text) const;
    std::string listOfAllowedValues() const;

    std::shared_ptr<Record> record;
    RegistryLink link;
};

}  // namespace vorn_3_1::internal

#endif
