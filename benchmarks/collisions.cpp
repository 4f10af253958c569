#include "collisions.h"

#include <cctype>
#include <cstdint>
#include <cstring>
#include <random>
#include <string_view>

namespace bench {
namespace {

// The hash takes a text word by word. Each step can be turned round, so the last word is chosen to bring the state to
// where it is wanted.
using Word = std::size_t;
constexpr bool is64 = sizeof(Word) == 8;
constexpr Word factor = static_cast<Word>(0xc6a4a7935bd1e995u);
constexpr Word wanted = 0x12345678u;
constexpr std::size_t wordCount = 16 / sizeof(Word);

constexpr Word inverseOfFactor() {
    Word inverse = factor;
    for (int bits = 3; bits < 64; bits *= 2)  // each step doubles the bits that are right
        inverse *= 2 - factor * inverse;
    return inverse;
}

constexpr Word shifted(Word word) { return word ^ word >> (is64 ? 47 : 24); }
constexpr Word mixed(Word word) { return shifted(word * factor) * factor; }
constexpr Word unmixed(Word word) { return shifted(word * inverseOfFactor()) * inverseOfFactor(); }

Word after(Word state, Word word) {
    return is64 ? (state ^ mixed(word)) * factor : state * factor ^ mixed(word);
}
Word lastWord(Word state) {
    return unmixed(is64 ? wanted * inverseOfFactor() ^ state : wanted ^ state * factor);
}

// Whether it can stand on a line of its own, and as a name, and means nothing but itself.
bool isPlain(const std::string& text) {
    return std::isalnum(static_cast<unsigned char>(text[0])) != 0 &&
           text.find_first_of(std::string_view("\0\n\r,=", 5)) == std::string::npos;
}

std::vector<std::string> texts(std::size_t count, bool collide) {
    std::mt19937_64 random(1);
    std::vector<std::string> all;
    while (all.size() < count) {
        Word words[wordCount];
        Word state = static_cast<Word>(0xc70f6907u) ^ (is64 ? 16 * factor : 16);
        for (std::size_t i = 0; i < wordCount; ++i) {
            words[i] = collide && i + 1 == wordCount ? lastWord(state) : static_cast<Word>(random());
            state = after(state, words[i]);
        }
        std::string text(16, '\0');
        std::memcpy(text.data(), words, 16);
        if (isPlain(text)) all.push_back(text);
    }
    return all;
}

}  // namespace

std::vector<std::string> collidingTexts(std::size_t count) { return texts(count, true); }
std::vector<std::string> randomTexts(std::size_t count) { return texts(count, false); }

}  // namespace bench
