#include "options/option_index.h"

#include <algorithm>

namespace vorn_3_1::internal {

void OptionIndex::reserveNames(std::size_t more) {
    uses.reserve(more);
    const std::size_t needed = journal.size() + more;
    if (needed > journal.capacity()) journal.reserve(std::max(needed, journal.capacity() * 2));
}

void OptionIndex::addName(const RegisteredName& name, std::uint32_t hash) noexcept {
    const auto count = [&name](Spelling& spelling) {
        spelling.option = std::min(spelling.option, name.option);
        ++spelling.count;
    };
    auto& slot = uses.slotFor(name.text, hash);
    if (slot.isFree()) uses.add(slot, name.text, hash, {});
    count(slot.payload.options);
    if (name.isSwitch) count(slot.payload.switches);
    journal.push_back(name);
}

void OptionIndex::addPositional(unsigned option) noexcept { positional = std::min(positional, option); }

void OptionIndex::addDefaulted(unsigned option) {
    const auto place = std::lower_bound(withDefault.begin(), withDefault.end(), option);
    if (place == withDefault.end() || *place != option) withDefault.insert(place, option);
}

OptionIndex::Spelling OptionIndex::find(std::string_view name) const {
    Spelling spelling = use(name).options;
    if (name.starts_with(negation)) {
        const Spelling negated = use(name.substr(negation.size())).switches;
        spelling.option = std::min(spelling.option, negated.option);
        spelling.count += negated.count;
    }
    return spelling;
}

OptionIndex::NameUse OptionIndex::use(std::string_view name) const {
    const auto* slot = uses.find(name);
    return slot == nullptr ? NameUse{} : slot->payload;
}

}  // namespace vorn_3_1::internal
