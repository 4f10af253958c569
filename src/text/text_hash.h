// The hash behind every table of texts.
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
    std::uint32_t start;
    std::uint32_t factor;  // odd, and large
};
const HashKey& hashKey();

/// A text's hash, for callers that look the same text up more than once. Every four bytes are multiplied by the
/// key's factor, and both halves of the product count.
inline std::uint32_t hashOf(std::string_view text) {
    const HashKey key = hashKey();
    std::uint32_t hash = key.start ^ static_cast<std::uint32_t>(text.size());
    const auto mix = [&](std::size_t offset, std::size_t bytes) {
        std::uint32_t word = 0;
        std::memcpy(&word, text.data() + offset, bytes);
        const std::uint64_t product = std::uint64_t{hash ^ word} * key.factor;
        hash = static_cast<std::uint32_t>(product ^ product >> 32);
    };
    std::size_t offset = 0;
    for (; text.size() - offset > sizeof hash; offset += sizeof hash)
        mix(offset, sizeof hash);
    mix(offset, text.size() - offset);
    return hash;
}

}  // namespace vorn_3_1::internal

#endif
