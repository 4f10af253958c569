// A hash table with open addressing. The entries stand in the order in which they came; a slot holds the number of an
// entry, and a name whose slot is taken goes to the next free one behind it.
//
//     entries    size, quiet                 hashes 5 and 37, say, and 32 slots
//     slots      0 0 0 0 0 1 2 0 ...         both want slot 5; quiet gets the next one
//
// grow makes the slots anew from the kept hashes; shrink takes the last entries away again.
#include "name_index.h"

namespace vorn_3_1::host::detail {

namespace {

std::size_t hashOf(std::string_view name) {
    std::size_t hash = 2166136261U;
    for (const char character : name)
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    return hash ^ (hash >> 15);
}

}  // namespace

/// The slot of the name, or the empty one where it would be entered.
std::size_t NameIndex::slotFor(std::string_view name, std::size_t hash) const {
    const std::size_t last = slots.size() - 1;
    for (std::size_t slot = hash & last;; slot = (slot + 1) & last) {
        if (slots[slot] == 0) return slot;
        const Entry& entry = entries[slots[slot] - 1];
        if (entry.hash == hash && entry.name == name) return slot;
    }
}

const NameMeaning* NameIndex::find(std::string_view name) const {
    if (entries.empty()) return nullptr;
    const unsigned found = slots[slotFor(name, hashOf(name))];
    return found == 0 ? nullptr : &entries[found - 1].meaning;
}

bool NameIndex::add(std::string_view name, NameMeaning meaning) {
    if (2 * entries.size() >= slots.size()) grow();
    const std::size_t hash = hashOf(name);
    const std::size_t slot = slotFor(name, hash);
    if (slots[slot] != 0) return false;
    entries.push_back({name, hash, meaning});
    slots[slot] = static_cast<unsigned>(entries.size());
    return true;
}

void NameIndex::grow() {
    constexpr std::size_t smallest = 32;
    std::vector<unsigned> more(slots.empty() ? smallest : 4 * slots.size());
    entries.reserve(more.size() / 2);
    slots.swap(more);
    for (std::size_t i = 0; i < entries.size(); ++i)
        slots[slotFor(entries[i].name, entries[i].hash)] = static_cast<unsigned>(i + 1);
}

/// The last one entered is the last of its row of slots, so that its slot becomes empty without a trace.
void NameIndex::shrink(std::size_t size) {
    while (entries.size() > size) {
        slots[slotFor(entries.back().name, entries.back().hash)] = 0;
        entries.pop_back();
    }
}

}  // namespace vorn_3_1::host::detail
