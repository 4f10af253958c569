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
    NameUse* use = uses.find(name.text(), hash);
    if (use == nullptr) use = &uses.add({{name.text(), hash}, {}, {}});
    count(use->options);
    if (name.isSwitch) count(use->switches);
    journal.push_back(name);
}

void OptionIndex::addPositional(unsigned option) noexcept { positional = std::min(positional, option); }

void OptionIndex::addDefaulted(unsigned option) {
    const auto place = std::lower_bound(withDefault.begin(), withDefault.end(), option);
    if (place == withDefault.end() || *place != option) withDefault.insert(place, option);
}

OptionIndex::Spelling OptionIndex::find(std::string_view name, std::uint32_t hash) const {
    const NameUse* known = uses.find(name, hash);
    Spelling spelling = known == nullptr ? Spelling{} : known->options;
    if (name.starts_with(negation)) {
        if (const NameUse* negated = uses.find(name.substr(negation.size()))) {
            spelling.option = std::min(spelling.option, negated->switches.option);
            spelling.count += negated->switches.count;
        }
    }
    return spelling;
}

}  // namespace vorn_3_1::internal
