#include "options/option_index.h"

#include <algorithm>

namespace vorn_3_1::internal {

unsigned OptionIndex::addName(const RegisteredName& name, unsigned previous) noexcept {
    const auto number = static_cast<unsigned>(names().size());
    if (previous != none) table.at(previous).next = number;
    if (RegisteredName* first = table.find(name.key(), name.hash)) {
        first->isTwice = true;
        first->isOfAnySwitch |= name.isOfSwitch;
        table.addHidden(name);
    } else {
        table.add(name, name.hash);
    }
    return number;
}

void OptionIndex::addPositional(unsigned option) noexcept { positional = std::min(positional, option); }

void OptionIndex::addDefaulted(unsigned option) {
    const auto place = std::lower_bound(withDefault.begin(), withDefault.end(), option);
    if (place == withDefault.end() || *place != option) withDefault.insert(place, option);
}

const RegisteredName* OptionIndex::findNegated(std::string_view text) const {
    if (!text.starts_with(negation)) return nullptr;
    const RegisteredName* name = table.find(text.substr(negation.size()));
    return name == nullptr || !name->isOfAnySwitch ? nullptr : name;
}

bool OptionIndex::isTaken(std::string_view text, std::uint32_t hash) const {
    return table.find(text, hash) != nullptr || findNegated(text) != nullptr;
}

NameMatch OptionIndex::findExactly(std::string_view typed) const {
    const RegisteredName* asItIs = table.find(typed);
    const RegisteredName* negated = findNegated(typed);
    const RegisteredName* found = asItIs == nullptr ? negated : asItIs;
    if (found == nullptr || found->isTwice || (asItIs != nullptr && negated != nullptr)) return {};
    return {numberOf(*found), found == negated};
}

}  // namespace vorn_3_1::internal
