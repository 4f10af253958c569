// A table of what is known by a text: what the garbage looks texts up in, the registry and the results names.
//
//     TextTable<KeptText> texts;
//     texts.reserve(1);                    may throw
//     texts.add({copy}, hashOf(copy));     never does
//     texts.find("level");                 the entry, or null
//
// Callers that change several things at once make all room first. From then on nothing fails, and no change is half
// done.
//
// With three entries, whose hashes end in 2, 5 and 2; the first 8 slots:
//
//     entries   "level" "l" "output-file"       in the order in which they were added
//     slots     - - 1 3 - 2 - -                 the third found its slot taken and went to the next
#ifndef VORN_TEXT_TEXT_TABLE_H
#define VORN_TEXT_TEXT_TABLE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "text/text_hash.h"

namespace vorn_3_1::internal {

/// A hash table over entries that have a key(). The texts are not the table's, so their owner outlives it; nothing
/// is ever removed.
///
/// The entries stand one behind the other as they came; a slot says which entry a hash belongs to. A std::unordered_map from
/// texts to entries would take 2300 instructions for registering an option instead of 1500, 39000 for a first parse of ten
/// arguments instead of 27000, and memory for each entry, so that add could fail.
template <class Entry>
class TextTable {
public:
    /// The text's entry, or null. Good until the next reserve.
    const Entry* find(std::string_view text, std::uint32_t hash) const {
        if (slots.empty()) return nullptr;
        const std::uint32_t entry = slots[slotOf(text, hash)].entry;
        return entry == none ? nullptr : &entries[entry - 1];
    }
    const Entry* find(std::string_view text) const { return find(text, hashOf(text)); }

    /// All entries, in the order in which they were added: an entry's place is its number.
    const std::vector<Entry>& all() const { return entries; }
    Entry& at(std::size_t number) { return entries[number]; }

    /// Makes room for `more` further entries. The only operation that may throw.
    void reserve(std::size_t more) {
        const std::size_t wanted = entries.size() + more;
        if (wanted > entries.capacity())
            entries.reserve(std::max({wanted, 2 * entries.capacity(), roomIn(fewest)}));
        if (wanted > roomIn(slots.size())) addSlots(wanted);
    }

    /// Adds an entry and returns what find finds from now on: this entry, or the first one that has its text. There has
    /// to be room for it.
    Entry& add(const Entry& entry, std::uint32_t hash) noexcept {
        entries.push_back(entry);
        Slot& slot = slots[slotOf(entry.key(), hash)];
        if (slot.entry == none) slot = {hash, static_cast<std::uint32_t>(entries.size())};
        return entries[slot.entry - 1];
    }

private:
    // All zeros when it is made, which a vector does fastest without constructors.
    struct Slot {
        std::uint32_t hash;
        std::uint32_t entry;  // counted from 1
    };
    static constexpr std::uint32_t none = 0;   // of Slot::entry
    static constexpr std::size_t fewest = 16;  // slots

    // How many entries so many slots may serve. A quarter stays free: a search ends at a free slot, and with fewer of
    // them it would have to walk far.
    static std::size_t roomIn(std::size_t slotCount) { return slotCount / 4 * 3; }

    std::size_t mask() const { return slots.size() - 1; }

    // Where the text's entry is, or the free slot for it. There is always a free one, since reserve has been called before.
    std::size_t slotOf(std::string_view text, std::uint32_t hash) const {
        std::size_t at = hash & mask();
        while (slots[at].entry != none &&
               (slots[at].hash != hash || entries[slots[at].entry - 1].key() != text))
            at = (at + 1) & mask();
        return at;
    }

    // The slots know their hashes, so no text is read again.
    void addSlots(std::size_t wanted) {
        std::size_t size = std::max(slots.size(), fewest);
        while (roomIn(size) < wanted)
            size *= 2;
        for (const Slot& slot : std::exchange(slots, std::vector<Slot>(size))) {
            if (slot.entry == none) continue;
            std::size_t at = slot.hash & mask();
            while (slots[at].entry != none)
                at = (at + 1) & mask();
            slots[at] = slot;
        }
    }

    std::vector<Entry> entries;
    std::vector<Slot> slots;  // a power of two of them, a quarter of which is free
};

}  // namespace vorn_3_1::internal

#endif
