// A table of what is known by a text: what the keepers, the registry and the results look names up in.
#ifndef VORN_TEXT_TEXT_TABLE_H
#define VORN_TEXT_TEXT_TABLE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace vorn_3_1::internal {

/// A text's hash, for callers that look the same text up more than once.
inline std::uint32_t hashOf(std::string_view text) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
}

/// An entry for a text, to which a derived class adds what is known by it.
struct TextEntry {
    TextEntry() = default;
    TextEntry(std::string_view ownText, std::uint32_t ownHash)
        : text(ownText.data()), length(static_cast<std::uint32_t>(ownText.size())), hash(ownHash) {}

    std::string_view key() const { return {text, length}; }

    const char* text = nullptr;
    std::uint32_t length = 0;
    std::uint32_t hash = 0;
};

/// A hash table over entries that have key() and hash. The texts are not the table's, so their owner outlives it;
/// nothing is ever removed.
///
/// The entries stand one behind the other as they came, and only their numbers are scattered by hash: so what is
/// visited and moved at random is small, and stays in the caches far longer.
template <class Entry>
class TextTable {
public:
    /// The text's entry, or null. Good until the next reserve.
    const Entry* find(std::string_view text, std::uint32_t hash) const {
        if (slots.empty()) return nullptr;
        for (std::uint32_t at = hash & mask(); slots[at] != free; at = (at + 1) & mask()) {
            if (((slots[at] ^ hash) & ~mask()) != 0) continue;
            const Entry& entry = entries[slots[at] & mask()];
            if (entry.key() == text) return &entry;
        }
        return nullptr;
    }
    const Entry* find(std::string_view text) const { return find(text, hashOf(text)); }
    Entry* find(std::string_view text, std::uint32_t hash) {
        return const_cast<Entry*>(std::as_const(*this).find(text, hash));
    }

    /// Makes room for `more` further entries. The only operation that may throw.
    void reserve(std::size_t more) {
        if (count + more > roomIn(slots.size())) grow(count + more);
    }

    /// Adds the entry of a text that has none. There has to be room for it.
    Entry& add(const Entry& entry) noexcept {
        enter(count, entry.hash);
        return entries[count++] = entry;
    }

private:
    // The low bits of a slot, as many as it takes to number the slots, hold the number of an entry: those of its hash
    // have only chosen the place. The bits above are the hash's, and tell nearly every other text at once.
    static constexpr std::uint32_t free = ~0u;  // no entry: there are always more slots than entries

    static std::size_t roomIn(std::size_t slotCount) { return slotCount / 4 * 3; }
    std::uint32_t mask() const { return static_cast<std::uint32_t>(slots.size()) - 1; }

    void enter(std::uint32_t number, std::uint32_t hash) noexcept {
        std::uint32_t at = hash & mask();
        while (slots[at] != free)
            at = (at + 1) & mask();
        slots[at] = (hash & ~mask()) | number;
    }

    void grow(std::size_t wanted) {
        std::size_t size = 16;
        while (roomIn(size) < wanted)
            size *= 2;
        entries.resize(roomIn(size));
        slots = std::vector<std::uint32_t>(size, free);
        for (std::uint32_t number = 0; number < count; ++number)
            enter(number, entries[number].hash);
    }

    std::vector<Entry> entries;
    std::uint32_t count = 0;
    std::vector<std::uint32_t> slots;  // a power of two of them
};

}  // namespace vorn_3_1::internal

#endif
