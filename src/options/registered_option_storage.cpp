#include "options/registered_option_storage.h"

#include <algorithm>
#include <exception>
#include <ostream>
#include <utility>

#include "base/diagnostic_log.h"
#include "base/strings.h"
#include "text/separated_text.h"

namespace vorn_3_1::internal {

namespace {

constexpr int namesRefused = 1;
constexpr int unfinished = 3;

constexpr std::size_t mostNames = 3;
constexpr std::size_t longestThirdName = 2;

std::string_view textOrEmpty(const char* text) { return text == nullptr ? "" : text; }

void reportTakenName(std::string_view name) {
    namespace strings = MORA_2_10::strings::tm2;
    logLine("An option with the same name is already registered: ", name);
    strings::openConsole();
    (strings::ucerr << strings::to_utf8(std::string(name))).put('\n').flush();
}

}  // namespace

RegisteredOptionStorage::RegisteredOptionStorage(Garbage* textKeeper)
    : keeper(textKeeper), fallback(Registration{}, textKeeper, {nullptr, &texts, 0}) {}

IOption* RegisteredOptionStorage::option(const char* names, const char* description,
                                         tamsu2::qel_variant_type_t type, const char* group) {
    try {
        return add(names, description, type, group);
    } catch (const std::exception&) {
        return &fallback;
    }
}

IOption* RegisteredOptionStorage::add(const char* names, const char* description,
                                      tamsu2::qel_variant_type_t type, const char* group) {
    fallback.status = unfinished;  // stays after a success, too
    Registration registration;
    registration.group = fileGroup(textOrEmpty(group));
    registration.names = split(textOrEmpty(names));
    if (validateName(registration.names) != 0) {
        fallback.status = namesRefused;
        return &fallback;
    }
    registration.description = texts.copy(textOrEmpty(description));
    registration.type = type;
    return append(std::move(registration));
}

// The index of the group, filed under the part before the first ':'. The rest is its title; the first title
// of a group stays. A registration that is then refused has filed its group all the same.
unsigned RegisteredOptionStorage::fileGroup(std::string_view group) {
    const std::size_t colon = group.find(':');
    const std::string_view name = group.substr(0, colon);
    const std::uint32_t hash = hashOf(name);
    if (const auto* known = groupsByName.find(name, hash)) return known->index;

    const std::string_view title = colon == std::string_view::npos ? "" : group.substr(colon + 1);
    groupsByName.reserve(1);
    groupList.push_back({texts.copy(name), texts.copy(title)});
    const auto index = static_cast<unsigned>(groupList.size() - 1);
    groupsByName.add({{groupList.back().name, hash}, index});
    return index;
}

std::vector<OptionName> RegisteredOptionStorage::split(std::string_view names) {
    std::vector<OptionName> list;
    list.reserve(static_cast<std::size_t>(std::ranges::count(names, ',')) + 1);
    SeparatedText pieces(names, ',');
    for (std::string_view piece; pieces.next(piece);)
        list.emplace_back(texts.copy(piece), hashOf(piece));
    return list;
}

int RegisteredOptionStorage::validateName(const std::vector<OptionName>& names) const {
    if (names.size() > mostNames) return namesRefused;
    if (names.size() == mostNames && names[2].key().size() > longestThirdName) return namesRefused;
    unsigned option = 0;
    if (findOption(names, option) != 0) return 0;
    reportTakenName(names[0].key());  // whichever name it was
    return namesRefused;
}

OptionDescription* RegisteredOptionStorage::append(Registration registration) {
    const unsigned option = size();
    derived.reserveNames(registration.names.size());
    OptionDescription& added =
        pool.add(std::move(registration), keeper, RegistryLink{&derived, &texts, option});
    descriptions.push_back(&added);
    unsigned ordinal = 0;
    for (const OptionName& name : added.names()) {
        derived.addName({name.key(), option, ordinal++, added.isSwitch()}, name.hash);
    }
    return &added;
}

int RegisteredOptionStorage::findOption(const std::vector<OptionName>& names, unsigned& option) const {
    for (const OptionName& name : names) {
        if (isAdded(name, option) == 0) return 0;
    }
    return 1;
}

int RegisteredOptionStorage::isAdded(const OptionName& name, unsigned& option) const {
    const unsigned found = derived.find(name.key(), name.hash).option;
    if (found == OptionIndex::none) return 1;
    option = found;
    return 0;
}

}  // namespace vorn_3_1::internal
