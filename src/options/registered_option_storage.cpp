// The way of a registration: its group is filed, its names are checked, then the option is made.
//
//     names          result
//     level,l        accepted
//     a,b,c,d        refused: more than three names
//     a,b,ccc        refused: a third name has at most 2 characters
//     level,x        refused when level is taken, and "level" goes to standard error
//     x,level        the same, but "x" goes there: it is always the first name. Kept on purpose.
//     x,y,           accepted: the third name is one NUL character
//     (empty)        accepted: an option without a name
//
// Names are compared with those of other options, not with each other: "a,a" is accepted.
#include "options/registered_option_storage.h"

#include <algorithm>
#include <array>
#include <exception>
#include <ostream>

#include "base/diagnostic_log.h"
#include "base/strings.h"
#include "text/separated_text.h"

namespace vorn_3_1::internal {

namespace {

// The reasons in the status of the fallback.
constexpr int namesRefused = 1;
constexpr int unfinished = 3;

constexpr std::size_t mostNames = 3;
constexpr std::size_t longestThirdName = 2;

std::string_view textOrEmpty(const char* text) { return text == nullptr ? "" : text; }

// The only line that the library writes without being asked: a host with two options of one name is mistaken, and its
// author shall see it at the first run.
void reportTakenName(std::string_view name) {
    namespace strings = MORA_2_10::strings::tm2;
    logLine("An option with the same name is already registered: ", name);
    strings::openConsole();
    (strings::ucerr << strings::to_utf8(std::string(name))).put('\n').flush();
}

}  // namespace

/// The names of a registration, as far as an option can have so many and one more.
class RegisteredOptionStorage::NameList {
public:
    struct Item {
        std::string_view text;
        std::uint32_t hash = 0;
    };

    explicit NameList(std::string_view names) {
        SeparatedText pieces(names, ',');
        for (std::string_view piece; count < items.size() && pieces.next(piece); ++count)
            items[count] = {piece, hashOf(piece)};
    }

    const Item* begin() const { return items.data(); }
    const Item* end() const { return items.data() + count; }
    Item* begin() { return items.data(); }
    Item* end() { return items.data() + count; }
    std::size_t size() const { return count; }

private:
    std::array<Item, mostNames + 1> items;
    std::size_t count = 0;
};

IOption* RegisteredOptionStorage::option(const char* names, const char* description,
                                         tamsu2::qel_variant_type_t type, const char* group) {
    try {
        return add(names, description, type, group);
    } catch (const std::exception&) {
        return &fallback;
    }
}

// First all that may fail, in the order in which hosts know its effects; then the option and its names, which cannot
// fail half way: the texts are copied, and the index has room.
IOption* RegisteredOptionStorage::add(const char* names, const char* description,
                                      tamsu2::qel_variant_type_t type, const char* group) {
    fallback.status = unfinished;  // stays after a success, too
    Registration registration;
    registration.group = fileGroup(textOrEmpty(group));
    NameList list(textOrEmpty(names));
    if (!isAcceptable(list)) {
        fallback.status = namesRefused;
        return &fallback;
    }
    registration.description = context.texts.copy(textOrEmpty(description));
    registration.type = type;
    for (NameList::Item& name : list)
        name.text = context.texts.copy(name.text);
    context.index.reserveNames(list.size());
    OptionDescription& added = descriptions.emplace_back(registration, size(), context);
    for (const NameList::Item& name : list)
        added.addName(name.text, name.hash);
    return &added;
}

// The number of the group, filed under the part before the first ':'. The rest is its title; the first title
// of a group stays. A registration that is then refused has filed its group all the same.
unsigned RegisteredOptionStorage::fileGroup(std::string_view group) {
    const std::size_t colon = group.find(':');
    const std::string_view name = group.substr(0, colon);
    const auto place = std::ranges::lower_bound(groupsByName, name, {},
                                                [this](unsigned number) { return groupList[number].name; });
    if (place != groupsByName.end() && groupList[*place].name == name) return *place;

    const std::string_view title = colon == std::string_view::npos ? "" : group.substr(colon + 1);
    const auto number = static_cast<unsigned>(groupList.size());
    groupList.push_back({context.texts.copy(name), context.texts.copy(title)});
    try {
        groupsByName.insert(place, number);
    } catch (...) {
        groupList.pop_back();
        throw;
    }
    return number;
}

// The two checks of the names' form come first and say nothing. Only a taken name is reported.
bool RegisteredOptionStorage::isAcceptable(const NameList& names) const {
    if (names.size() > mostNames) return false;
    if (names.size() == mostNames && names.begin()[mostNames - 1].text.size() > longestThirdName)
        return false;
    const bool isTaken = std::ranges::any_of(
        names, [this](const NameList::Item& name) { return context.index.isTaken(name.text, name.hash); });
    if (isTaken) reportTakenName(names.begin()->text);  // whichever name it was
    return !isTaken;
}

}  // namespace vorn_3_1::internal
