// The scan that cuts name lists and value lists at a separator.
//
// The registry cuts the names of an option with it, the recognisers the values of a list:
//
//     option("level,l", ...)     "level" "l"
//     --list=a:b                 "a" "b"         the host chose ':' for this option
#ifndef VORN_TEXT_SEPARATED_TEXT_H
#define VORN_TEXT_SEPARATED_TEXT_H

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace vorn_3_1::internal {

/// Walks the items of a text that is followed by a NUL character.
///
/// Two properties are kept on purpose. The character after a separator is never tested as a separator, and
/// a separator at the very end is followed by an item that holds the terminating NUL:
///
///     text     items
///     a,b      "a" "b"
///     ,a       "" "a"
///     a,,b     "a" ",b"
///     a,       "a" "\0"
///     (empty)  none
class SeparatedText {
public:
    SeparatedText(std::string_view wholeText, char separatorCharacter)
        : text(wholeText), separator(separatorCharacter) {}

    /// Sets `item` to the next item; false when there is none.
    bool next(std::string_view& item) {
        const std::size_t found = text.find(separator, cursor);
        if (found != std::string_view::npos) {
            item = text.substr(start, found - start);
            start = found + 1;
            cursor = found + 2;  // steps over the character after the separator
            return true;
        }
        cursor = std::max(cursor, text.size());
        if (start == cursor) return false;
        // After a separator at the end the cursor stands behind the NUL. Not substr, which stops before it.
        item = {text.data() + start, cursor - start};
        start = cursor;
        return true;
    }

private:
    std::string_view text;
    char separator;
    std::size_t start = 0;
    std::size_t cursor = 0;
};

}  // namespace vorn_3_1::internal

#endif
