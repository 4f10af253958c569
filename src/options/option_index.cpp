// How the index learns of names, positional options and defaults, and finds names typed in full.
//
// Usually every text is one name. A synonym may repeat one, though, and "no-" may make one of another:
//
//     names                           typed          findExactly
//     level of two options            level          none: the search reports both
//     switch debug, option no-debug   no-debug       none, likewise
//     switch debug                    no-debug       debug, negated
//
// The first name of a text is what the table finds, so it carries what holds for all names of that text.
#include "options/option_index.h"

#include <algorithm>

namespace vorn_3_1::internal {

// Callers have made room, so that a name never enters only in part.
unsigned OptionIndex::addName(const RegisteredName& name, unsigned previous) noexcept {
    const auto number = static_cast<unsigned>(names().size());
    if (previous != none) table.at(previous).next = number;
    RegisteredName& first = table.add(name, name.hash);
    first.isTwice = numberOf(first) != number;
    first.isOfAnySwitch |= name.isOfSwitch;
    return number;
}

// The option that was registered first counts, not the first call: an earlier builder, held longer than its contract
// says, still works.
void OptionIndex::addPositional(unsigned option) noexcept { positional = std::min(positional, option); }

// In order of registration, because defaults draw their positions in this order.
void OptionIndex::addDefaulted(unsigned option) {
    const auto place = std::lower_bound(withDefault.begin(), withDefault.end(), option);
    if (place == withDefault.end() || *place != option) withDefault.insert(place, option);
}

const RegisteredName* OptionIndex::findNegated(std::string_view text) const {
    if (!text.starts_with(negation)) return nullptr;
    const RegisteredName* name = table.find(text.substr(negation.size()));
    return name == nullptr || !name->isOfAnySwitch ? nullptr : name;
}

// The other way round is not looked at: a new switch may be "x" though there is an option "no-x". Kept on purpose.
bool OptionIndex::isTaken(std::string_view text, std::uint32_t hash) const {
    return table.find(text, hash) != nullptr || findNegated(text) != nullptr;
}

// Only one single meaning counts as found. All else is left to the search, which lists every meaning for the message.
NameMatch OptionIndex::findExactly(std::string_view typed) const {
    const RegisteredName* asItIs = table.find(typed);
    const RegisteredName* negated = findNegated(typed);
    const RegisteredName* found = asItIs == nullptr ? negated : asItIs;
    if (found == nullptr || found->isTwice || (asItIs != nullptr && negated != nullptr)) return {};
    return {numberOf(*found), found == negated};
}

}  // namespace vorn_3_1::internal
