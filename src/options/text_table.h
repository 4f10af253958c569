// A table of what is known by a text: what the keepers, the registry and the results look names up in.
#ifndef VORN_OPTIONS_TEXT_TABLE_H
#define VORN_OPTIONS_TEXT_TABLE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
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

    bool isFree() const { return text == nullptr; }
    std::string_view key() const { return {text, length}; }

    const char* text = nullptr;
    std::uint32_t length = 0;
    std::uint32_t hash = 0;
};

/// A hash table with open addressing over entries that have key(), hash and isFree(), the last true of a new one.
/// The texts are not the table's, so their owner outlives it; nothing is ever removed.
template <class Entry>
class TextTable {
public:
    /// The text's entry, or null. Good until the next reserve.
    const Entry* find(std::string_view text, std::uint32_t hash) const {
        if (entries.empty()) return nullptr;
        const Entry& entry = entries[place(text, hash)];
        return entry.isFree() ? nullptr : &entry;
    }
    const Entry* find(std::string_view text) const { return find(text, hashOf(text)); }

    /// Makes room for `more` further texts. The only operation that may throw.
    void reserve(std::size_t more) {
        if ((used + more) * 4 > entries.size() * 3) grow(used + more);
    }

    /// The text's entry, or a free one for add to fill. There has to be room for it.
    Entry& entryFor(std::string_view text, std::uint32_t hash) { return entries[place(text, hash)]; }

    /// Fills a free entry that entryFor has given for an equal text.
    void add(Entry& free, const Entry& entry) {
        free = entry;
        ++used;
    }

private:
    // The entry of the text, or the free one where it belongs.
    std::size_t place(std::string_view text, std::uint32_t hash) const {
        const std::size_t mask = entries.size() - 1;
        std::size_t index = hash & mask;
        while (!entries[index].isFree() && (entries[index].hash != hash || entries[index].key() != text)) {
            index = (index + 1) & mask;
        }
        return index;
    }

    void grow(std::size_t count) {
        std::size_t size = 16;
        while (size * 3 < count * 4)
            size *= 2;
        std::vector<Entry> old(size);
        old.swap(entries);
        const std::size_t mask = size - 1;
        for (const Entry& entry : old) {
            if (entry.isFree()) continue;
            std::size_t index = entry.hash & mask;
            while (!entries[index].isFree())
                index = (index + 1) & mask;
            entries[index] = entry;
        }
    }

    std::vector<Entry> entries;  // a power of two of them, at most three quarters in use
    std::size_t used = 0;
};

}  // namespace vorn_3_1::internal

#endif
