// The hash behind every table of texts.
//
// TextTable calls it, and those who look one name up in several tables: the registry takes the hash of a name when the
// option is registered, and every result finds the name by the same number.
//
//     hashOf("level")     another number in every process, the same one within it
#ifndef VORN_TEXT_TEXT_HASH_H
#define VORN_TEXT_TEXT_HASH_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vorn_3_1::internal {

/// Another one in every process. Whoever writes a file of arguments does not know it, so he cannot choose texts
/// that have one hash and make a table slow.
struct HashKey {
    std::uint32_t first;
    std::uint32_t second;
};
/// The process's key: drawn at the first call, the same ever after.
const HashKey& hashKey();

/// A text's hash, for callers that look the same text up more than once. Every eight bytes make two factors with what
/// came before them, and all of the product counts.
///
///     length      what is read
///     above 8     eight bytes at a time, until 8 or fewer are left; then these:
///     4 to 8      the first four and the last four, which may overlap
///     1 to 3      the first, the middle and the last one, which may be the same
///     0           nothing: the length and the key decide
inline std::uint32_t hashOf(std::string_view text) {
    const HashKey key = hashKey();
    const auto read = [](const char* from) {
        std::uint32_t word = 0;
        std::memcpy(&word, from, sizeof word);
        return word;
    };
    std::uint64_t state = text.size();
    const auto add = [&](std::uint32_t first, std::uint32_t second) {
        state = std::uint64_t{static_cast<std::uint32_t>(state) ^ first ^ key.first} *
                (static_cast<std::uint32_t>(state >> 32) ^ second ^ key.second);
    };
    const char* rest = text.data();
    std::size_t bytes = text.size();
    for (; bytes > 8; bytes -= 8, rest += 8)
        add(read(rest), read(rest + 4));
    if (bytes >= 4) {
        add(read(rest), read(rest + bytes - 4));
    } else if (bytes > 0) {
        const auto at = [rest](std::size_t index) {
            return std::uint32_t{static_cast<unsigned char>(rest[index])};
        };
        add(at(0) | at(bytes / 2) << 8 | at(bytes - 1) << 16, 0);
    }
    return static_cast<std::uint32_t>(state ^ state >> 32);
}

}  // namespace vorn_3_1::internal

#endif
