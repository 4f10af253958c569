// Texts of 16 bytes that all have one hash in the standard library (libstdc++'s std::hash, which has no key), so that
// each becomes a neighbour of all others in a table that relies on it; or random ones.
#ifndef BENCHMARKS_COLLISIONS_H
#define BENCHMARKS_COLLISIONS_H

#include <cctype>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace bench {

// That hash takes a text word by word. Each step can be turned round, so the last word is chosen to bring the state to
// where it is wanted.
using Word = std::size_t;
constexpr bool is64 = sizeof(Word) == 8;
constexpr Word factor = static_cast<Word>(0xc6a4a7935bd1e995u);

constexpr Word inverseOfFactor() {
    Word inverse = factor;
    for (int bits = 3; bits < 64; bits *= 2)  // each step doubles the bits that are right
        inverse *= 2 - factor * inverse;
    return inverse;
}
constexpr Word shifted(Word word) { return word ^ word >> (is64 ? 47 : 24); }
constexpr Word after(Word state, Word word) {
    const Word mixed = shifted(word * factor) * factor;
    return is64 ? (state ^ mixed) * factor : state * factor ^ mixed;
}
constexpr Word lastWord(Word state, Word wanted) {
    const Word mixed = is64 ? wanted * inverseOfFactor() ^ state : wanted ^ state * factor;
    return shifted(mixed * inverseOfFactor()) * inverseOfFactor();
}

inline std::vector<std::string> textsOf16Bytes(std::size_t count, bool collide) {
    constexpr std::size_t wordCount = 16 / sizeof(Word);
    std::mt19937_64 random(1);
    std::vector<std::string> all;
    while (all.size() < count) {
        Word words[wordCount];
        Word state = static_cast<Word>(0xc70f6907u) ^ (is64 ? 16 * factor : 16);
        for (std::size_t i = 0; i < wordCount; ++i) {
            words[i] =
                collide && i + 1 == wordCount ? lastWord(state, 0x12345678u) : static_cast<Word>(random());
            state = after(state, words[i]);
        }
        std::string text(16, '\0');
        std::memcpy(text.data(), words, 16);
        // It has to stand on a line of its own, and as a name, and mean nothing but itself.
        const bool isPlain = text.find_first_of(std::string("\0\n\r,=", 5)) == std::string::npos;
        if (isPlain && std::isalnum(static_cast<unsigned char>(text[0]))) all.push_back(text);
    }
    return all;
}

}  // namespace bench

#endif
