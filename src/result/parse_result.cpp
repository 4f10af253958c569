// The store. Whatever may fail for want of memory comes before the first visible change, so a failed store
// leaves a result that is whole.
#include "result/parse_result.h"

#include <algorithm>
#include <utility>

#include "base/position_counter.h"
#include "options/option_description.h"
#include "options/registered_option_storage.h"

namespace vorn_3_1::internal {

void ParseResult::destroy() { delete this; }

int ParseResult::store(const OptionDescription& option, OptionData& data) {
    const Name* name = find(option.firstOfNames());
    if (name != nullptr && name->record != nullptr && name->record->nameListId == option.nameListId()) {
        name->record->given.append(prepare(data));
    } else {
        storeByName(option, data);
    }
    return 0;
}

void ParseResult::storeByName(const OptionDescription& option, OptionData& data) {
    const Names& list = namesOf(option);
    if (list[0]->record == nullptr) {
        // The first occurrence replaces whatever other options have left under the further names.
        Record& fresh = records.add();
        fresh.given = prepare(data);
        share(list, fresh, option.nameListId());
    } else if (Record* common = commonRecord(list)) {
        common->given.append(prepare(data));
        common->nameListId = option.nameListId();
    } else {
        storeApart(list, data);
    }
}

// Appends under every name on its own; a name that stands in the list twice is appended to twice.
void ParseResult::storeApart(const Names& list, OptionData& data) {
    std::vector<Given> prepared;
    prepared.reserve(list.size());
    for (Name* name : list) {
        ownRecord(*name);
        OptionData copy = data;
        prepared.push_back(prepare(copy));
    }
    for (std::size_t i = 0; i < list.size(); ++i)
        list[i]->record->given.append(prepared[i]);
}

int ParseResult::applyDefault(const RegisteredOptionStorage& storage) {
    for (const unsigned option : storage.index().defaulted()) {
        const OptionDescription& description = storage.description(option);
        if (description.type() != tamsu2::qel_empty) recordDefault(description);
    }
    return 0;
}

void ParseResult::recordDefault(const OptionDescription& option) {
    const Names& list = namesOf(option);
    if (list.empty()) return;
    if (std::all_of(list.begin(), list.end(), [](const Name* name) { return name->record == nullptr; })) {
        share(list, records.add(), option.nameListId());
    }
    Record* common = commonRecord(list);
    const char* text = garbage.init(option.toString(option.keeper(), option.defaultValue()));
    const auto set = [&](Record& record) {
        record.defaultVariant = option.defaultValue();
        record.defaultText = text;
    };
    if (common != nullptr) set(*common);
    for (Name* name : list) {
        if (common == nullptr) set(ownRecord(*name));
        name->defaultPosition = internal::nextPosition();
    }
}

void ParseResult::addArgument(std::string_view argument, std::int32_t position) {
    arguments.push_back({garbage.keep(argument).data(), position});
}

ParseResult::Name* ParseResult::find(const RegisteredName& name) {
    const NameEntry* entry = options.find(name.key(), name.hash);
    return entry == nullptr ? nullptr : entry->name;
}

// The entries of the option's names, made where they are missing; a made one counts as not entered.
const ParseResult::Names& ParseResult::namesOf(const OptionDescription& option) {
    namesInHand.clear();
    option.eachName([this](const RegisteredName& name) {
        Name* known = find(name);
        if (known == nullptr) {
            options.reserve(1);
            known = options.add({&names.add(texts.copy(name.key()))}, name.hash).name;
        }
        namesInHand.push_back(known);
    });
    return namesInHand;
}

bool ParseResult::areDistinct(const Names& list) {
    for (auto name = list.begin(); name != list.end(); ++name) {
        if (std::find(list.begin(), name, *name) != name) return false;
    }
    return true;
}

// Makes the list's names, and nobody else, share the record.
void ParseResult::share(const Names& list, Record& record, std::uint64_t nameListId) noexcept {
    for (Name* name : list) {
        setRecord(*name, record);
        name->defaultPosition = 0;
    }
    record.nameListId = areDistinct(list) ? nameListId : 0;
}

// The record that the list's names share among themselves; null if there is none. A name that stands there
// twice rules sharing out: it has to be appended to twice.
ParseResult::Record* ParseResult::commonRecord(const Names& list) {
    Record* record = list[0]->record;
    const bool common =
        record != nullptr && record->users == list.size() && areDistinct(list) &&
        std::all_of(list.begin(), list.end(), [record](const Name* name) { return name->record == record; });
    return common ? record : nullptr;
}

// The name's record, made or parted from the other names' where that is not done yet.
ParseResult::Record& ParseResult::ownRecord(Name& name) {
    if (name.record == nullptr) {
        setRecord(name, records.add());
    } else if (name.record->users > 1) {
        Record& own = records.add();
        own.given = prepareCopy(name.record->given);
        own.defaultText = name.record->defaultText;
        own.defaultVariant = name.record->defaultVariant;
        setRecord(name, own);
    }
    return *name.record;
}

// An iteration that is under way on the name goes on at the same place of its new record.
void ParseResult::setRecord(Name& name, Record& record) noexcept {
    Record* former = name.record;
    if (former == &record) return;
    if (former != nullptr) {
        if (currentEntry == &name) {
            valueCursor = former->given.values.samePlace(valueCursor, record.given.values);
            occurrenceCursor =
                former->given.occurrences.samePlace(occurrenceCursor, record.given.occurrences);
        }
        --former->users;
        former->nameListId = 0;
    }
    name.record = &record;
    ++record.users;
}

ParseResult::Given ParseResult::prepare(OptionData& data) {
    Given prepared;
    prepared.occurrences.link(occurrences.add(data.position, nullptr));
    for (ValueRecord& record : data.values) {
        // Queries hand texts out as far as their first NUL, and the one text that holds any begins with it.
        const std::string_view text = record.text.starts_with('\0') ? "" : record.text;
        prepared.values.link(
            values.add(texts.copy(text).data(), std::move(record.value), nullptr, record.position, false));
    }
    return prepared;
}

ParseResult::Given ParseResult::prepareCopy(const Given& source) {
    Given copy;
    for (const auto* place = source.occurrences.begin(); *place != nullptr;
         place = Chain<Occurrence>::after(place)) {
        copy.occurrences.link(occurrences.add((*place)->position, nullptr));
    }
    for (const auto* place = source.values.begin(); *place != nullptr;
         place = Chain<StoredValue>::after(place)) {
        const StoredValue& value = **place;
        copy.values.link(values.add(value.text, value.value, nullptr, value.position, value.isKept));
    }
    return copy;
}

}  // namespace vorn_3_1::internal
