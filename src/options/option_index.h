// Everything that is derived from the registered options, so that no walk over them is needed.
#ifndef VORN_OPTIONS_OPTION_INDEX_H
#define VORN_OPTIONS_OPTION_INDEX_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/text_table.h"

namespace vorn_3_1::internal {

/// What turns a switch's name into its other form.
constexpr std::string_view negation = "no-";

/// One name of one option, in the order in which the names were added.
struct RegisteredName {
    RegisteredName() = default;
    RegisteredName(std::string_view ownText, unsigned ownOption, unsigned ownOrdinal, bool ofSwitch)
        : start(ownText.data()),
          length(static_cast<std::uint32_t>(ownText.size())),
          option(ownOption),
          ordinal(ownOrdinal),
          isSwitch(ofSwitch) {}

    std::string_view text() const { return {start, length}; }

    const char* start = nullptr;
    std::uint32_t length = 0;
    unsigned option = 0;    // index in the registry
    unsigned ordinal = 0;   // which of the option's names it is
    bool isSwitch = false;  // answers to "no-" as well
};

/// Owned by the registry and told of every name, positional flag and default in the very operation that
/// adds it; nothing is ever removed. So it is never stale, and whoever derives more from the names
/// (WordTree) only has to read those that were added since.
class OptionIndex {
public:
    static constexpr unsigned none = ~0u;

    /// Makes room for `more` names, after which as many addName calls do not throw.
    void reserveNames(std::size_t more);
    void addName(const RegisteredName& name, std::uint32_t hash) noexcept;

    void addPositional(unsigned option) noexcept;
    void addDefaulted(unsigned option);

    struct Spelling {
        unsigned option = none;  // the first in order of registration that answers to it
        unsigned count = 0;      // how many names and "no-" forms are spelled exactly so
    };
    Spelling find(std::string_view name) const { return find(name, hashOf(name)); }
    Spelling find(std::string_view name, std::uint32_t hash) const;

    const std::vector<RegisteredName>& names() const { return journal; }

    /// The positional option that was registered first, or none.
    unsigned firstPositional() const { return positional; }

    /// The options that have a default, in order of registration.
    const std::vector<unsigned>& defaulted() const { return withDefault; }

private:
    struct NameUse : TextEntry {
        Spelling options;
        Spelling switches;
    };

    TextTable<NameUse> uses;
    std::vector<RegisteredName> journal;
    std::vector<unsigned> withDefault;
    unsigned positional = none;
};

}  // namespace vorn_3_1::internal

#endif
