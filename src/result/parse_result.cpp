// The store. Whatever may fail for want of memory comes before the first visible change, so a failed store
// leaves a result that is whole.
//
//     parse --level=5      store(level, {position 3, values {"5", 4}})
//       first time         makes entries for "level" and "l" that share new contents    share
//       later              appends to these contents                                    History::append
//       names have parted  appends under each name                                      storeApart
#include "result/parse_result.h"

#include <algorithm>
#include <utility>

#include "base/position_counter.h"
#include "options/option_description.h"
#include "options/registered_option_storage.h"

namespace vorn_3_1::internal {

void ParseResult::destroy() { delete this; }

int ParseResult::store(const OptionDescription& option, OptionData& data) {
    const Entry* first = findEntry(option.firstOfNames());
    if (first != nullptr && first->contents != nullptr &&
        first->contents->nameListId == option.nameListId()) {
        first->contents->history.append(prepare(data));
    } else {
        storeUnderEachName(option, data);
    }
    return 0;
}

void ParseResult::storeUnderEachName(const OptionDescription& option, OptionData& data) {
    const Entries& list = entriesOf(option);
    if (list[0]->contents == nullptr) {
        // The first occurrence replaces whatever other options have left under the further names: kept on purpose.
        Contents& fresh = contents.add();
        fresh.history = prepare(data);
        share(list, fresh, option.nameListId());
    } else if (Contents* shared = contentsSharedBy(list)) {
        shared->history.append(prepare(data));
        shared->nameListId = option.nameListId();
    } else {
        storeApart(list, data);
    }
}

// Appends under every name on its own; a name that stands in the list twice is appended to twice.
void ParseResult::storeApart(const Entries& list, OptionData& data) {
    std::vector<History> prepared;
    prepared.reserve(list.size());
    for (Entry* entry : list) {
        ownContents(*entry);
        OptionData copy = data;
        prepared.push_back(prepare(copy));
    }
    for (std::size_t i = 0; i < list.size(); ++i)
        list[i]->contents->history.append(prepared[i]);
}

int ParseResult::applyDefault(const RegisteredOptionStorage& storage) {
    for (const unsigned option : storage.index().defaulted()) {
        const OptionDescription& description = storage.description(option);
        if (description.type() != tamsu2::qel_empty) recordDefault(description);
    }
    return 0;
}

void ParseResult::recordDefault(const OptionDescription& option) {
    const Entries& list = entriesOf(option);
    if (list.empty()) return;
    if (std::ranges::all_of(list, [](const Entry* entry) { return entry->contents == nullptr; })) {
        share(list, contents.add(), option.nameListId());
    }
    Contents* shared = contentsSharedBy(list);
    const char* text = garbage.init(option.toString(option.garbage(), option.defaultValue()));
    const auto setDefault = [&](Contents& target) {
        target.defaultVariant = option.defaultValue();
        target.defaultText = text;
    };
    if (shared != nullptr) setDefault(*shared);
    for (Entry* entry : list) {
        if (shared == nullptr) setDefault(ownContents(*entry));
        entry->defaultPosition = internal::nextPosition();
    }
}

void ParseResult::addArgument(std::string_view argument, std::int32_t position) {
    arguments.push_back({garbage.keep(argument).data(), position});
}

ParseResult::Entry* ParseResult::findEntry(const RegisteredName& name) {
    const TableEntry* known = entriesByName.find(name.key(), name.hash);
    return known == nullptr ? nullptr : known->entry;
}

// The entries of the option's names, in their order. Missing ones are made, without contents.
const ParseResult::Entries& ParseResult::entriesOf(const OptionDescription& option) {
    entriesAtHand.clear();
    option.eachName([this](const RegisteredName& name) {
        Entry* known = findEntry(name);
        if (known == nullptr) {
            entriesByName.reserve(1);
            known = entriesByName.add({&entries.add(texts.copy(name.key()))}, name.hash).entry;
        }
        entriesAtHand.push_back(known);
    });
    return entriesAtHand;
}

bool ParseResult::areDistinct(const Entries& list) {
    for (auto entry = list.begin(); entry != list.end(); ++entry) {
        if (std::find(list.begin(), entry, *entry) != entry) return false;
    }
    return true;
}

// Makes the entries of the list, and no others, share the contents.
void ParseResult::share(const Entries& list, Contents& shared, std::uint64_t nameListId) noexcept {
    for (Entry* entry : list) {
        setContents(*entry, shared);
        entry->defaultPosition = 0;
    }
    shared.nameListId = areDistinct(list) ? nameListId : 0;
}

// The contents that all entries of the list share and no other entry does, or null. A name that stands in the list
// twice rules sharing out: it has to be appended to twice.
ParseResult::Contents* ParseResult::contentsSharedBy(const Entries& list) {
    Contents* common = list[0]->contents;
    const auto hasThem = [common](const Entry* entry) { return entry->contents == common; };
    const bool isShared = common != nullptr && common->sharers == list.size() && areDistinct(list) &&
                          std::ranges::all_of(list, hasThem);
    return isShared ? common : nullptr;
}

// The entry's contents; new or copied ones where it has none yet, or shares them.
ParseResult::Contents& ParseResult::ownContents(Entry& entry) {
    if (entry.contents == nullptr) {
        setContents(entry, contents.add());
    } else if (entry.contents->sharers > 1) {
        Contents& own = contents.add();
        own.history = copyOf(entry.contents->history);
        own.defaultText = entry.contents->defaultText;
        own.defaultVariant = entry.contents->defaultVariant;
        setContents(entry, own);
    }
    return *entry.contents;
}

// An iteration over the entry goes on as far from the start as it was: after two of three values have been delivered,
// the next one is the third of the new contents. If they have only one, it is at their end.
void ParseResult::setContents(Entry& entry, Contents& now) noexcept {
    Contents* former = entry.contents;
    if (former == &now) return;
    if (former != nullptr) {
        if (iteration.entry == &entry) {
            iteration.occurrence =
                now.history.occurrences.counterpart(former->history.occurrences, iteration.occurrence);
            iteration.value = now.history.values.counterpart(former->history.values, iteration.value);
        }
        --former->sharers;
        former->nameListId = 0;
    }
    entry.contents = &now;
    ++now.sharers;
}

// Nodes for one occurrence. The texts are copied, since arguments are good for one parse only; typed values are moved.
ParseResult::History ParseResult::prepare(OptionData& data) {
    History prepared;
    prepared.occurrences.link(occurrences.add(data.position, nullptr));
    for (ValueRecord& record : data.values) {
        // Queries hand texts out as far as their first NUL, and the one text that holds any begins with it.
        const std::string_view text = record.text.starts_with('\0') ? "" : record.text;
        prepared.values.link(
            values.add(texts.copy(text).data(), std::move(record.value), nullptr, record.position, false));
    }
    return prepared;
}

ParseResult::History ParseResult::copyOf(const History& source) {
    History copy;
    for (auto occurrence = source.occurrences.begin(); !occurrence.isAtEnd(); occurrence.advance()) {
        copy.occurrences.link(occurrences.add(occurrence->position, nullptr));
    }
    for (auto value = source.values.begin(); !value.isAtEnd(); value.advance()) {
        copy.values.link(values.add(value->text, value->value, nullptr, value->position, value->isKept));
    }
    return copy;
}

}  // namespace vorn_3_1::internal
