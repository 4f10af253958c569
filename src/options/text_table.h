// A table from texts to small payloads: what the keepers, the registry and the results look names up in.
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

/// A hash table with open addressing. It refers to its texts, so their owner outlives it; nothing is
/// ever removed.
template <class Payload>
class TextTable {
public:
    class Slot {
    public:
        bool isFree() const { return text == nullptr; }
        std::string_view key() const { return {text, length}; }

        [[no_unique_address]] Payload payload{};

    private:
        friend class TextTable;

        const char* text = nullptr;
        std::uint32_t length = 0;
        std::uint32_t hash = 0;
    };

    /// The text's slot, or null. Good until the next reserve.
    const Slot* find(std::string_view text, std::uint32_t hash) const {
        if (slots.empty()) return nullptr;
        const Slot& slot = slots[place(text, hash)];
        return slot.isFree() ? nullptr : &slot;
    }
    const Slot* find(std::string_view text) const { return find(text, hashOf(text)); }

    /// Makes room for `more` further texts. The only operation that may throw.
    void reserve(std::size_t more) {
        if ((used + more) * 4 > slots.size() * 3) grow(used + more);
    }

    /// The text's slot, or a free one in which add may put the text. There has to be room for it.
    Slot& slotFor(std::string_view text, std::uint32_t hash) { return slots[place(text, hash)]; }

    /// Fills a free slot that slotFor has given for an equal text.
    void add(Slot& slot, std::string_view text, std::uint32_t hash, const Payload& payload) {
        slot.text = text.data();
        slot.length = static_cast<std::uint32_t>(text.size());
        slot.hash = hash;
        slot.payload = payload;
        ++used;
    }

private:
    // The slot that holds the text, or the free one where it belongs.
    std::size_t place(std::string_view text, std::uint32_t hash) const {
        const std::size_t mask = slots.size() - 1;
        std::size_t index = hash & mask;
        while (!slots[index].isFree() && (slots[index].hash != hash || slots[index].key() != text)) {
            index = (index + 1) & mask;
        }
        return index;
    }

    void grow(std::size_t count) {
        std::size_t size = 16;
        while (size * 3 < count * 4)
            size *= 2;
        std::vector<Slot> old(size);
        old.swap(slots);
        const std::size_t mask = size - 1;
        for (const Slot& slot : old) {
            if (slot.isFree()) continue;
            std::size_t index = slot.hash & mask;
            while (!slots[index].isFree())
                index = (index + 1) & mask;
            slots[index] = slot;
        }
    }

    std::vector<Slot> slots;  // a power of two of them, at most three quarters in use
    std::size_t used = 0;
};

}  // namespace vorn_3_1::internal

#endif
