// Reading a result. A key leads to the level of its parser, there to the slot of its option, and to the values in it;
// with no slot, or an empty one, to the default.
//
//     --size=1 in a file, --size=2 --size=3 typed     slot: 2, 3 of the command line; lower: 1 of the file
//     result[size]                                    2, 3 if it is repeated, else 3: the highest layer counts
//     result.origin(size)                             argument 2: that of the last value
//
// parse.cpp has filled the slots; the templates in vorn/host/result.h give the values their types.
#include "vorn/host/result.h"

#include <algorithm>
#include <stdexcept>

#include "result_data.h"
#include "shown_text.h"

namespace vorn_3_1::host {

namespace detail {

void Slot::clear() {
    if (values) values->clear();
    places.clear();
    lower.reset();
}

bool Level::isGiven(unsigned index) const {
    const Slot* found = slot(index);
    if (found == nullptr || found->isEmpty()) return false;
    const What what = table->records[index].what;
    if (what == What::count) return static_cast<const TypedValues<int>&>(*found->values).items.back() > 0;
    if (what != What::toggle && what != What::flag) return true;
    return static_cast<const TypedValues<bool>&>(*found->values).items.back();
}

ResultData::ResultData(Table& outermost) : sources{{Origin::Layer::commandLine, ""}}, root(outermost) {
    ++root.owners;
}

ResultData::~ResultData() {
    levels.clear();  // the values before the types that made them
    release(&root);
}

const Level* ResultData::level(AnyKey key) const {
    for (const Level& one : levels) {
        if (one.table->id == key.parser && key.index < one.table->records.size()) return &one;
    }
    return nullptr;
}

Level& ResultData::level(const Table& table) {
    return *std::find_if(levels.begin(), levels.end(),
                         [&table](const Level& one) { return one.table == &table; });
}

Origin ResultData::origin(const Place& place) const {
    const Source& source = sources[place.source];
    return {source.layer, source.name, place.line};
}

unsigned ResultData::addSource(Origin::Layer layer, std::string name) {
    sources.push_back({layer, std::move(name)});
    return static_cast<unsigned>(sources.size() - 1);
}

namespace {

/// Never destroyed: objects of the host may read results when the process ends.
template <class T>
const Values* makeOne(T value) {
    auto made = std::make_unique<TypedValues<T>>();
    made->items.push_back(value);
    return made.release();
}

/// Switches are off, flags not given and counts 0 unless something else is said.
const Values* impliedDefault(const Record& record) {
    static const Values* const off = makeOne(false);
    static const Values* const zero = makeOne(0);
    if (record.what == What::count) return zero;
    return record.hasValue() ? nullptr : off;
}

const Values* defaultOf(const Record& record) {
    return record.defaults() != nullptr ? record.defaults() : impliedDefault(record);
}

struct Found {
    const Record* record;
    const Slot* slot;  ///< Null if nothing was given.
};

Found find(const ResultData* data, AnyKey key) {
    const Level* level = data != nullptr ? data->level(key) : nullptr;
    if (level == nullptr) return {nullptr, nullptr};
    const Slot* slot = level->slot(key.index);
    return {&level->table->records[key.index], slot != nullptr && !slot->isEmpty() ? slot : nullptr};
}

/// For whoever is to read something.
Found findToRead(const ResultData* data, AnyKey key) {
    const Found found = find(data, key);
    if (found.record != nullptr) return found;
    throw std::logic_error(
        "vorn: the result holds nothing for this key: it is of a command that was not chosen, of another "
        "parser, or the result is empty");
}

Stretch stretchOf(const Slot& slot, Range range) {
    const std::vector<Place>& places = slot.places;
    const auto isBefore = [](const Place& place, int position) { return place.position < position; };
    const auto begin = std::lower_bound(places.begin(), places.end(), range.low, isBefore);
    const auto end =
        range.high == INT_MAX ? places.end() : std::lower_bound(begin, places.end(), range.high, isBefore);
    return {slot.values.get(), &slot, static_cast<std::size_t>(begin - places.begin()),
            static_cast<std::size_t>(end - places.begin())};
}

}  // namespace

}  // namespace detail

Result::~Result() { delete data; }

const detail::Values* Result::read(AnyKey key) const {
    const detail::Found found = detail::findToRead(data, key);
    return found.slot != nullptr ? found.slot->values.get() : detail::defaultOf(*found.record);
}

const detail::Values& Result::readOne(AnyKey key) const {
    const detail::Values* values = read(key);
    if (values == nullptr || values->size() == 0) {
        throw std::logic_error(
            "vorn: there is no value to read; the parse has failed, or only a rule makes it sure");
    }
    return *values;
}

/// Where the stretch reaches back to before the first argument and the layer in force has nothing in it, a lower one
/// does: each file of `tool a.c -O2 b.c` gets its own level, the first one the default.
detail::Stretch Result::stretch(AnyKey key, Range range, bool withDefault) const {
    const detail::Found found = detail::findToRead(data, key);
    for (const detail::Slot* slot = found.slot; slot != nullptr; slot = slot->lower.get()) {
        const detail::Stretch part = detail::stretchOf(*slot, range);
        if (part.begin < part.end) return part;
        if (range.low > 0) return {};
    }
    const detail::Values* values = withDefault ? detail::defaultOf(*found.record) : nullptr;
    const bool isIn = values != nullptr && range.low <= 0 && range.high > 0;
    return isIn ? detail::Stretch{values, nullptr, 0, values->size()} : detail::Stretch{};
}

bool Result::isGiven(AnyKey key) const {
    const detail::Level* level = data != nullptr ? data->level(key) : nullptr;
    return level != nullptr && level->isGiven(key.index);
}

Origin Result::origin(AnyKey key) const {
    const detail::Found found = detail::find(data, key);
    if (found.slot != nullptr) return data->origin(found.slot->places.back());
    const bool hasDefault = found.record != nullptr && detail::defaultOf(*found.record) != nullptr;
    return {hasDefault ? Origin::Layer::defaulted : Origin::Layer::none, "", 0};
}

int Result::position(const detail::Stretch& stretch, std::size_t index) {
    return stretch.slot->places[index].position;
}

Origin Result::origin(const detail::Stretch& stretch, std::size_t index) const {
    return data->origin(stretch.slot->places[index]);
}

namespace {

AnyKey keyOf(const detail::Table& table, std::string_view name) {
    if (const detail::NameMeaning* meaning = table.findDeclared(name);
        meaning != nullptr && !meaning->isOff) {
        return {table.id, meaning->index};
    }
    return {};
}

/// The key of a name, the innermost command's first. A result that holds nothing knows no names.
AnyKey keyIn(const detail::ResultData* data, std::string_view name) {
    if (data == nullptr) return {};
    for (auto level = data->levels.rbegin(); level != data->levels.rend(); ++level) {
        const AnyKey key = keyOf(*level->table, name);
        if (key.parser != 0) return key;
    }
    throw std::logic_error(
        detail::joined({"vorn: nothing is declared by the name '", detail::escaped(name), "'",
                        name.substr(0, 1) == "-" ? " (names have no hyphens here)" : ""}));
}

}  // namespace

AnyKey Result::find(Text name, const detail::TypeFacts& asked) const {
    const AnyKey key = keyIn(data, name);
    const detail::Record* record = detail::find(data, key).record;
    if (record != nullptr && record->type != &asked) {
        throw std::logic_error(
            detail::joined({"vorn: '", detail::escaped(name), "' is of another type than it is read as"}));
    }
    return key;
}

bool Result::isGiven(Text name) const { return isGiven(keyIn(data, name)); }

Origin Result::origin(Text name) const { return origin(keyIn(data, name)); }

const std::vector<std::string>& Result::arguments() const {
    static const std::vector<std::string> none;
    return data != nullptr ? data->arguments : none;
}

const Parser* Result::command() const { return data != nullptr ? data->command : nullptr; }

const Error& Outcome::error() const {
    if (mistakes.empty()) throw std::logic_error("vorn: nothing was wrong, so there is no error to be read");
    return mistakes.front();
}

}  // namespace vorn_3_1::host
