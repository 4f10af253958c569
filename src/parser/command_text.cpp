// Arguments from a text, such as a file with options in it: one per line, no quoting.
//
//     text                  arguments
//     --level=5             "--level=5"
//       two words           "two words"       blanks in front go, those between and behind stay
//     ; a comment
//     # another one
//     (empty)
//
// The arguments then go the way of all others; defaults are not recorded.
#include <algorithm>
#include <exception>
#include <locale>
#include <string>
#include <string_view>

#include "base/strings.h"
#include "parser/basic_parser.h"

namespace vorn_3_1 {

namespace {

// The argument on a line: from the first character that is no white space to the end, less carriage returns there.
// Empty for a blank line and for a comment. What is white space is left to the locale, character by character: kept
// on purpose, since hosts choose their locale.
std::string_view argumentOn(std::string_view line, const std::ctype<char>& characters) {
    const char* end = line.data() + line.size();
    line.remove_prefix(static_cast<std::size_t>(
        characters.scan_not(std::ctype_base::space, line.data(), end) - line.data()));
    if (line.starts_with(';') || line.starts_with('#')) return {};
    while (line.ends_with('\r') || line.ends_with('\n'))
        line.remove_suffix(1);
    return line;
}

// Puts a NUL behind each argument.
void appendLines(internal::ArgumentList& args, std::string& text) {
    const std::locale locale;  // the global one of the moment
    const auto& characters = std::use_facet<std::ctype<char>>(locale);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::string_view argument = argumentOn({text.data() + start, end - start}, characters);
        start = end + 1;
        if (argument.empty()) continue;
        args.append(argument);
        text[static_cast<std::size_t>(argument.data() + argument.size() - text.data())] = '\0';
    }
}

}  // namespace

// Records no defaults, unlike parseArgsVector: hosts parse several texts into one result.
int BasicParser::parseStream(const char* text, IParseResult* result) {
    try {
        internal::ArgumentList args;
        std::string lines = MORA_2_10::strings::tm2::to_ustring(text == nullptr ? "" : text);
        appendLines(args, lines);
        return parseVector(args, result);
    } catch (const std::exception&) {
        return internal::exceptionCaught;
    }
}

}  // namespace vorn_3_1
