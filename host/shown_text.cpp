// Texts go through here on their way into a message, character by character:
//
//     a letter of any alphabet                       as it is
//     tab, line feed, bell                           \t, \n, \x07
//     U+202E, which turns the direction              \u202E
//     a byte FF, which no character begins with      \xFF
//
// Long texts are cut before they are escaped, so that no escape is cut in two.
#include "shown_text.h"

#include <cstddef>

namespace vorn_3_1::host::detail {

namespace {

/// What a message shows of one text, in bytes before escaping. Half of it stands in front of the cut.
constexpr std::size_t mostShown = 160;

unsigned lengthOf(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

/// Longer than needed, or of the range that no character has.
bool isMisused(char32_t code, unsigned length) {
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    return code < least[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000);
}

void appendHexadecimal(std::string& text, char32_t code, unsigned digits) {
    for (unsigned shift = 4 * digits; shift != 0; shift -= 4) {
        text += "0123456789ABCDEF"[(code >> (shift - 4)) & 0xFU];
    }
}

void appendEscaped(std::string& text, Character character) {
    switch (character.code) {
        case '\t':
            text += "\\t";
            return;
        case '\n':
            text += "\\n";
            return;
        case '\r':
            text += "\\r";
            return;
        default:
            break;
    }
    text += character.code < 0x100 ? "\\x" : "\\u";
    appendHexadecimal(text, character.code, character.code < 0x100 ? 2 : 4);
}

/// The position at or behind `at` where no character is cut.
std::size_t nextBoundary(std::string_view text, std::size_t at) {
    for (unsigned step = 0; step < 3 && at < text.size() && isContinuation(text[at]); ++step)
        ++at;
    return at;
}

}  // namespace

Character firstCharacter(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const Character broken = {first, 1, false};
    const unsigned length = lengthOf(first);
    if (length <= 1) return {first, 1, length == 1};
    if (text.size() < length) return broken;
    char32_t code = first & (0xFFU >> (length + 1));
    for (unsigned i = 1; i < length; ++i) {
        if (!isContinuation(text[i])) return broken;
        code = (code << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    return isMisused(code, length) ? broken : Character{code, length, true};
}

bool isControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || (code >= 0x200B && code <= 0x200F) ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF;
}

std::string escaped(std::string_view text) {
    std::string safe;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        if (!character.isCharacter || isControl(character.code)) {
            appendEscaped(safe, character);
        } else {
            safe.append(text, 0, character.length);
        }
        text.remove_prefix(character.length);
    }
    return safe;
}

std::string shown(std::string_view text) {
    if (text.size() <= mostShown) return escaped(text);
    const std::size_t frontEnd = nextBoundary(text, mostShown / 2);
    const std::size_t backBegin = nextBoundary(text, text.size() - mostShown / 2);
    return escaped(text.substr(0, frontEnd)) + "..." + escaped(text.substr(backBegin));
}

std::string inQuotes(std::string_view text) { return "'" + shown(text) + "'"; }

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces)
        text.append(piece);
    return text;
}

std::string inCapitals(std::string_view text) {
    std::string capitals(text);
    for (char& letter : capitals) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return capitals;
}

}  // namespace vorn_3_1::host::detail
