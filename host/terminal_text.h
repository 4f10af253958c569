// Texts as a terminal shows them: in columns, with characters that are two columns wide or none.
#ifndef VORN_HOST_TERMINAL_TEXT_H
#define VORN_HOST_TERMINAL_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace vorn_3_1::host::detail {

/// The text without what a terminal could obey or a reader be misled by: a control character or an invalid byte is
/// escaped, a tab is a blank. Line breaks stay, and marks that only join or part letters.
std::string harmless(std::string_view text);

/// The same for what has no business with a line break; it has neither blanks at its ends nor two in a row.
std::string oneLine(std::string_view text);

/// How many columns a harmless text without line breaks takes.
unsigned columnsOf(std::string_view text);

/// What does not break as long as it fits in a line.
struct Run {
    std::string_view text;
    bool followsBlank;
};

/// Cuts a harmless line at blanks and beside the wide characters of East Asia.
std::vector<Run> runsOf(std::string_view line);

/// Lines of at most `columns`, made from harmless text. They break at blanks and beside the wide characters of East
/// Asia, and where there is neither, between two characters. A line break in the text stays one, and so do the
/// blanks at the beginning of a line, for all that follows in it.
std::vector<std::string> wrapped(std::string_view text, unsigned columns);

/// The same for pieces that break only where there is no room for one in a whole line. Lines behind the first one
/// begin with `indent` blanks.
std::vector<std::string> filled(const std::vector<std::string>& pieces, unsigned columns, unsigned indent);

}  // namespace vorn_3_1::host::detail

#endif
