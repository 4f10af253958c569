// The builder's operations. Each does all it says, or throws and leaves the record as it was.
//
//     add<int>("quality", "").defaultTo(80).range(1, 50)
//         setDefault     80 is in the record
//         setLimits      1 to 50 are swapped in, the record is checked: 80 is too large; swapped out again, and thrown
//
// The templates in vorn/host/option.h call them. What is checked is in table.cpp; see Table::recheck.
#include <utility>

#include "shown_text.h"
#include "table.h"
#include "vorn/host/option.h"

namespace vorn_3_1::host::detail {

namespace {

/// Changes one field of a record, and takes that back if the record contradicts itself then.
template <class Field>
void change(Table& table, unsigned index, Field& field, Field value) {
    table.refuseWhileBusy();
    std::swap(field, value);
    try {
        table.recheck(index);
    } catch (...) {
        std::swap(field, value);
        throw;
    }
    ++table.changes;
}

Details& detailsOf(Table& table, unsigned index) {
    table.refuseWhileBusy();
    Record& record = table.records[index];
    if (!record.details) record.details = Owned<Details>(new Details);
    return *record.details;
}

void takeAll(Values& values, const Owned<Values>& others) {
    for (std::size_t i = 0; others && i < others->size(); ++i)
        values.take(*others, i);
}

Owned<Values> copyOf(const Record& record, const Owned<Values>& values) {
    if (!values) return {};
    Owned<Values> copy(record.type->make());
    takeAll(*copy, values);
    return copy;
}

[[noreturn]] void fail(const Table& table, unsigned index, const char* fault) {
    throw RegistrationError(joined({"'", table.records[index].firstName(), "': ", fault}));
}

}  // namespace

AnyKey Declaration::key() const { return {table->id, index}; }

void Declaration::addSynonym(Text name) const {
    if (name.find(',') != Text::npos) fail(*table, index, "a synonym is one name, without ','");
    std::vector<std::string>& synonyms = detailsOf(*table, index).synonyms;
    synonyms.emplace_back(name);
    try {
        table->enterSynonym(name, index);
    } catch (...) {
        synonyms.pop_back();
        throw;
    }
    ++table->changes;
}

void Declaration::allowValues(Owned<Values> values) const { nameValues({}, std::move(values)); }

/// Choices that are there already stay, in front.
void Declaration::nameValues(std::vector<std::string> names, Owned<Values> values) const {
    Choices& choices = detailsOf(*table, index).choices;
    Choices all;
    all.names = choices.names;
    all.names.insert(all.names.end(), names.begin(), names.end());
    all.values = Owned<Values>(table->records[index].type->make());
    takeAll(*all.values, choices.values);
    takeAll(*all.values, values);
    const bool areMixed = !all.names.empty() && all.names.size() != all.values->size();
    if (areMixed) fail(*table, index, "use either allow() or named()");
    change(*table, index, choices, std::move(all));
}

void Declaration::setLimits(Owned<Values> low, Owned<Values> high, IsLess isLess) const {
    const Record& record = table->records[index];
    Limits& limits = detailsOf(*table, index).limits;
    Limits both;
    both.low = low ? std::move(low) : copyOf(record, limits.low);
    both.high = high ? std::move(high) : copyOf(record, limits.high);
    both.isLess = isLess;
    change(*table, index, limits, std::move(both));
}

void Declaration::addCheck(Owned<Check> check) const {
    std::vector<Owned<Check>>& checks = detailsOf(*table, index).checks;
    checks.push_back(std::move(check));
    try {
        table->recheck(index);
    } catch (...) {
        checks.pop_back();
        throw;
    }
}

void Declaration::setDefault(Owned<Values> values) const {
    change(*table, index, detailsOf(*table, index).defaults, std::move(values));
}

void Declaration::setImplicit(Owned<Values> value) const {
    change(*table, index, detailsOf(*table, index).implicit, std::move(value));
}

void Declaration::setRequired() const { change(*table, index, table->records[index].isRequired, true); }

void Declaration::setList(char separator) const {
    if (separator == '\0') fail(*table, index, "a list needs a separator");
    change(*table, index, table->records[index].separator, separator);
}

void Declaration::setRepeated() const { change(*table, index, table->records[index].isRepeated, true); }

void Declaration::setOptional() const { change(*table, index, table->records[index].isOptional, true); }

void Declaration::setAtLeast(unsigned count) const {
    change(*table, index, table->records[index].takesRest, true);
    table->records[index].atLeast = count;
}

void Declaration::setEnvironment(Text variable) const {
    if (variable.empty() || variable.find('=') != Text::npos) {
        fail(*table, index, "the name of a variable is not empty and holds no '='");
    }
    change(*table, index, detailsOf(*table, index).environment, std::string(variable));
}

void Declaration::setMetavar(Text name) const {
    change(*table, index, detailsOf(*table, index).metavar, std::string(name));
}

void Declaration::setGroup(Text title) const {
    change(*table, index, table->records[index].group, table->keep(title));
}

void Declaration::setHidden() const { change(*table, index, table->records[index].isHidden, true); }

void Declaration::setDeprecated(Text instead) const {
    std::string advice(instead);
    Details& details = detailsOf(*table, index);
    change(*table, index, table->records[index].isDeprecated, true);
    details.instead = std::move(advice);
}

void Declaration::addNeed(AnyKey other) const {
    const Table* owner = table->ownerOf(other);
    if (owner == nullptr) {
        throw RegistrationError(
            joined({"'", table->records[index].firstName(),
                    "' needs another option: the key belongs to another parser; use keys of "
                    "this one or of an outer one"}));
    }
    if (owner == table && other.index == index) fail(*table, index, "it needs itself");
    detailsOf(*table, index).needs.push_back(other);
    ++table->changes;
}

void Declaration::setOnlyOnCommandLine() const {
    change(*table, index, table->records[index].isOnlyTyped, true);
}

void Declaration::setSecret() const { change(*table, index, table->records[index].isSecret, true); }

void Declaration::setGlobal() const { change(*table, index, table->records[index].isGlobal, true); }

void Declaration::setCompletion(Completion kind) const {
    change(*table, index, table->records[index].completion, kind);
}

void Declaration::setOffer(Owned<Offer> offer) const {
    change(*table, index, detailsOf(*table, index).offer, std::move(offer));
}

}  // namespace vorn_3_1::host::detail
