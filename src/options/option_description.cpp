// What the builder changes in an option's record.
//
// Everything that may fail comes first in each operation: copies of texts and values, room in the index. So an
// operation that meets a std::exception has changed nothing, and the host's chain of calls goes on:
//
//     option->synonym("effort")     no memory: the option has its former names, and is returned as ever
//
// An operation that concerns the index tells it at once, so that the index never lags behind.
#include "options/option_description.h"

#include <exception>
#include <utility>

namespace vorn_3_1::internal {

namespace {

// One counter for the whole process: a result may be filled by several parsers, and must not take the names of one for
// the names of another. 64 bits do not run out.
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

// A recogniser may hold a copy of this description right now, while a handler changes the option. The copy then keeps
// the values as they were.
OptionDescription::Values& OptionDescription::ownValues() {
    if (values == nullptr) {
        values = std::make_shared<Values>();
    } else if (values.use_count() > 1) {
        values = std::make_shared<Values>(*values);
    }
    return *values;
}

// Links the name behind the last one. A longer list of names is another list, so it gets another number: a result that
// has stored this option before looks at its names again.
void OptionDescription::addName(std::string_view name, std::uint32_t hash) noexcept {
    lastNumber = context->index.addName({name, hash, number, isSwitch()}, lastNumber);
    if (nameCount++ == 0) firstNumber = lastNumber;
    listId = drawNameListId();
}

// Checks nothing: even a name that another option has becomes one of this option, too. Kept on purpose; only a
// registration is refused for such a name.
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

// The index is told before the value is set: it may find no memory, and setting the value cannot fail.
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
