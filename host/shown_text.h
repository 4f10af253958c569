// Making texts from outside fit to be shown.
#ifndef VORN_HOST_SHOWN_TEXT_H
#define VORN_HOST_SHOWN_TEXT_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace vorn_3_1::host::detail {

/// One character of a UTF-8 text.
struct Character {
    char32_t code;     ///< The byte itself where no character begins.
    unsigned length;   ///< In bytes.
    bool isCharacter;  ///< Otherwise a byte that belongs to no valid character.
};

/// The character at the beginning of a text that is not empty.
Character firstCharacter(std::string_view text);

/// Whether a terminal may be told to do something by it, or a reader be misled: control characters, and those that
/// turn the direction of a text.
bool isControl(char32_t code);

/// With control characters and invalid bytes escaped: a tab as \t, a bell as \x07.
std::string escaped(std::string_view text);

/// The same, cut in the middle if it is long.
std::string shown(std::string_view text);

/// The same between quotes.
std::string inQuotes(std::string_view text);

std::string joined(std::initializer_list<std::string_view> pieces);

/// The texts with a separator between neighbours.
template <class Texts>
std::string listed(const Texts& texts, std::string_view separator) {
    std::string all;
    for (const auto& text : texts) {
        if (!all.empty()) all.append(separator);
        all.append(text);
    }
    return all;
}

/// Small letters of ASCII made large.
std::string inCapitals(std::string_view text);

}  // namespace vorn_3_1::host::detail

#endif
