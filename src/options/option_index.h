// What is derived from the registered options, so that no walk over them is needed.
//
// For the switch "verbose,v" and the positional option "file,f" with a default, registered in this order:
//
//     names               verbose, v (of option 0), file, f (of option 1)
//     findExactly         "f" is of option 1;  "no-v" of option 0, negated;  "fil" of none
//     firstPositional     1
//     defaulted           1
//
// The registry asks it whether a name is taken, the recogniser of names for names typed in full, the recogniser of
// positional arguments for its option, and results for the options with a default.
#ifndef VORN_OPTIONS_OPTION_INDEX_H
#define VORN_OPTIONS_OPTION_INDEX_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/text_table.h"

namespace vorn_3_1::internal {

/// What turns a switch's name into its other form.
constexpr std::string_view negation = "no-";

/// Instead of a number of an option or a name.
constexpr unsigned none = ~0u;

/// One name of one option. Kept small, since a search for a shortened name may read all of them: so the text is a
/// pointer and 32 bits.
struct RegisteredName {
    RegisteredName(std::string_view text, std::uint32_t textHash, unsigned ofOption, bool ofSwitch)
        : start(text.data()),
          length(static_cast<std::uint32_t>(text.size())),
          hash(textHash),
          option(ofOption),
          isOfSwitch(ofSwitch),
          isOfAnySwitch(ofSwitch) {}

    /// Followed by a NUL.
    std::string_view key() const { return {start, length}; }

    const char* start;
    std::uint32_t length;
    std::uint32_t hash;
    unsigned option;       // its number in the registry
    unsigned next = none;  // the option's next name
    bool isOfSwitch;       // answers to "no-" as well
    bool isOfAnySwitch;    // this name or a later one of the same text answers to "no-"; on the first of them
    bool isTwice = false;  // there is a later one of the same text; on the first of them
};

/// A name that a typed name stands for, or one of several that it may stand for.
struct NameMatch {
    unsigned name = none;
    bool negated = false;
};

/// Owned by the registry and told of every name, positional flag and default in the very operation that
/// adds it; nothing is ever removed. So it is never stale, and whoever derives more from the names
/// (NameSearch) only has to read those that were added since.
class OptionIndex {
public:
    /// Makes room for `more` names, after which as many addName calls do not throw.
    void reserveNames(std::size_t more) { table.reserve(more); }

    /// Adds a name to the option's list of names, whose last one so far is `previous`, or none. Returns its number.
    unsigned addName(const RegisteredName& name, unsigned previous) noexcept;

    /// Both may be called in any order of the options, and again for the same one.
    void addPositional(unsigned option) noexcept;
    void addDefaulted(unsigned option);

    /// Whether the text is a name, or the "no-" form of a switch's.
    bool isTaken(std::string_view text, std::uint32_t hash) const;

    /// The name that is spelled exactly so, or in its "no-" form; none when it is not exactly one.
    NameMatch findExactly(std::string_view typed) const;

    /// In the order in which they were added.
    const std::vector<RegisteredName>& names() const { return table.all(); }

    /// The positional option that was registered first, or none.
    unsigned firstPositional() const { return positional; }

    /// The options that have a default, in order of registration.
    const std::vector<unsigned>& defaulted() const { return withDefault; }

private:
    // The name whose "no-" form the text is.
    const RegisteredName* findNegated(std::string_view text) const;
    unsigned numberOf(const RegisteredName& name) const {
        return static_cast<unsigned>(&name - names().data());
    }

    TextTable<RegisteredName> table;
    std::vector<unsigned> withDefault;
    unsigned positional = none;
};

}  // namespace vorn_3_1::internal

#endif
