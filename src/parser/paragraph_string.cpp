// The wrapping of words, for the help text. Behind the prefix "-a", with an indent of 5 and a width of 11:
//
//     -a   the text       10 characters of room: width - 1
//          wraps at
//          blanks
//
// A prefix that reaches the indent is followed by one blank, which takes room, as what is too long of the prefix does.
// A line feed in the text begins a new line, and a word that is longer than the room is cut.
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "parser/basic_parser.h"
#include "text/joined_text.h"

namespace vorn_3_1 {

namespace {

// The part of the text that goes on a line with the given room:
//
//     "the text wraps", 10   "the text"         back to the last blank: a word is cut off
//     "the text", 3          "the"              the cut falls behind a word
//     "wrapping", 4          "wrap"             nothing but one long word
//     "the\ntext", 9         "the"              a line feed ends it
//     "text", 0              std::out_of_range
std::string_view lineOf(std::string_view text, unsigned room) {
    const std::size_t lineFeed = text.substr(0, room).find('\n');
    const std::size_t cut = lineFeed < room ? lineFeed : room;
    std::string_view chunk = text.substr(0, cut);
    if (text.size() <= chunk.size() || text[cut] == ' ') return chunk;
    if (cut == 0) throw std::out_of_range("no room for text");
    if (text[cut - 1] != ' ' && text[cut] != '\n') {
        // In the middle of a word: back to the last blank, or, if the word is all there is, cut it hard.
        chunk = text.substr(0, text.rfind(' ', cut));
    }
    return chunk.substr(0, room);
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \n");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

}  // namespace

std::string BasicParser::paragraphString(std::string_view text, std::string prefix, unsigned indent,
                                         unsigned width) {
    std::string out;
    std::string line = std::move(prefix);
    while (!text.empty()) {
        text = withoutLeadingBlanks(text);
        unsigned room = width - 1;
        if (line.size() < indent) {
            line.resize(indent, ' ');
        } else {
            // Wraps around when the prefix leaves no room, and then there is no limit: kept on purpose.
            room = width - 2 - (static_cast<unsigned>(line.size()) - indent);
            line += ' ';
        }
        const std::string_view chunk = lineOf(text, room);
        internal::append(out, {line, chunk, "\n"});
        text.remove_prefix(chunk.size());
        line.clear();
    }
    return out;
}

}  // namespace vorn_3_1
