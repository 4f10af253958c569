#include "options/option_description.h"

#include <exception>
#include <utility>

namespace vorn_3_1::internal {

namespace {

std::uint64_t drawNameListId() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

OptionDescription::Record::Record(Registration registration, Garbage* textKeeper)
    : Registration(std::move(registration)), keeper(textKeeper), nameListId(drawNameListId()) {}

OptionDescription::OptionDescription(Registration registration, Garbage* textKeeper,
                                     const RegistryLink& registryLink)
    : record(std::make_shared<Record>(std::move(registration), textKeeper)), link(registryLink) {}

// A builder operation either happens whole or leaves the option as it was.
template <class Change>
IOption* OptionDescription::shape(Change change) {
    try {
        change(ownRecord());
    } catch (const std::exception&) {
    }
    return this;
}

OptionDescription::Record& OptionDescription::ownRecord() {
    if (record.use_count() > 1) record = std::make_shared<Record>(*record);
    return *record;
}

IOption* OptionDescription::synonym(const char* name) {
    return shape([&](Record& own) {
        const std::string_view text = link.texts->copy(name == nullptr ? "" : name);
        const OptionName added{text, hashOf(text)};
        if (link.index != nullptr) link.index->reserveNames(1);
        own.names.push_back(added);
        own.nameListId = drawNameListId();
        if (link.index == nullptr) return;
        const auto ordinal = static_cast<unsigned>(own.names.size() - 1);
        link.index->addName({text, link.option, ordinal, isSwitch()}, added.hash);
    });
}

IOption* OptionDescription::allowValue(const tamsu2::variant_t& value) {
    return shape([&](Record& own) { own.allowedValues.push_back(value); });
}

IOption* OptionDescription::defaultValue(const tamsu2::variant_t& value) {
    return shape([&](Record& own) {
        tamsu2::variant_t copy = value;
        if (link.index != nullptr) link.index->addDefaulted(link.option);
        own.defaultValue = std::move(copy);
        own.hasDefault = true;
    });
}

IOption* OptionDescription::tokenize(char separator) {
    return shape([&](Record& own) { own.tokenizer = separator; });
}

IOption* OptionDescription::positional() {
    return shape([&](Record& own) {
        own.isPositional = true;
        if (link.index != nullptr) link.index->addPositional(link.option);
    });
}

}  // namespace vorn_3_1::internal
