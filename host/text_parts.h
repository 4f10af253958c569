// Small questions about texts, each of which several files ask.
#ifndef VORN_HOST_TEXT_PARTS_H
#define VORN_HOST_TEXT_PARTS_H

#include <string>
#include <string_view>
#include <vector>

namespace vorn_3_1::host::detail {

/// The classic digits, under every locale.
inline bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Whatever is no ASCII counts as a letter.
inline bool isLetterOrDigit(char character) {
    const bool isLetter = (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
    return isLetter || isDigit(character) || static_cast<unsigned char>(character) >= 0x80;
}

inline bool beginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

/// Calls `each` for every piece between the separators, empty ones included.
template <class Each>
void forEachPiece(std::string_view text, char separator, Each each) {
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        each(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    each(text);
}

template <class Piece = std::string>
std::vector<Piece> piecesOf(std::string_view text, char separator) {
    std::vector<Piece> pieces;
    forEachPiece(text, separator, [&pieces](std::string_view piece) { pieces.emplace_back(piece); });
    return pieces;
}

/// Of names that are declared together, the one that stands for the others in messages.
inline std::string_view firstName(std::string_view names) { return names.substr(0, names.find(',')); }

}  // namespace vorn_3_1::host::detail

#endif
