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

// A builder operation either happens whole or leaves the option as it was.
template <class Change>
IOption* OptionDescription::changeWhole(Change change) {
    try {
        if (context != nullptr) change();
    } catch (const std::exception&) {
    }
    return this;
}

OptionDescription::Values& OptionDescription::ownValues() {
    if (values == nullptr) {
        values = std::make_shared<Values>();
    } else if (values.use_count() > 1) {
        values = std::make_shared<Values>(*values);
    }
    return *values;
}

void OptionDescription::addName(std::string_view name, std::uint32_t hash) noexcept {
    lastNumber = context->index.addName({name, hash, number, isSwitch()}, lastNumber);
    if (nameCount++ == 0) firstNumber = lastNumber;
    listId = drawNameListId();
}

IOption* OptionDescription::synonym(const char* name) {
    return changeWhole([&] {
        context->index.reserveNames(1);
        const std::string_view text = context->texts.copy(name == nullptr ? "" : name);
        addName(text, hashOf(text));
    });
}

IOption* OptionDescription::allowValue(const tamsu2::variant_t& value) {
    return changeWhole([&] { ownValues().allowed.push_back(value); });
}

IOption* OptionDescription::defaultValue(const tamsu2::variant_t& value) {
    return changeWhole([&] {
        tamsu2::variant_t copy = value;
        Values& own = ownValues();
        context->index.addDefaulted(number);
        own.byDefault = std::move(copy);
    });
}

IOption* OptionDescription::tokenize(char separator) {
    return changeWhole([&] { separatorCharacter = separator; });
}

IOption* OptionDescription::positional() {
    return changeWhole([&] {
        takesPositional = true;
        context->index.addPositional(number);
    });
}

}  // namespace vorn_3_1::internal
