// Abbreviations are a promise: what users may type for each name, and what a new version of a tool takes from them.
//
//     const host::Abbreviations released = host::Abbreviations::read(textOfThePreviousRelease);
//     for (const host::BrokenAbbreviation& broken : host::brokenAbbreviations(released, parser.abbreviations()))
//         std::puts(broken.text().c_str());
#ifndef VORN_HOST_ABBREVIATIONS_H
#define VORN_HOST_ABBREVIATIONS_H

#if __cplusplus >= 201703L

#include <string>
#include <vector>

#include "vorn/host/parser.h"
#include "vorn/host/text.h"

namespace vorn_3_1::host {

/// A name that users may shorten.
struct AbbreviatedName {
    enum class Kind { option, command, choice };

    Kind kind = Kind::option;
    std::string
        command;  ///< The commands that it stands behind: "remote add"; empty for the outermost parser.
    std::string option;         ///< Of a choice: the first name of its option or positional argument.
    std::string name;           ///< In full, without hyphens; a switch also has its "no-" forms.
    bool isPositional = false;  ///< Of a choice: it is typed alone, without an option.
};

/// A name and the shortest text that means it and nothing else.
struct Abbreviation : AbbreviatedName {
    std::string shortest;
};

/// All names of a parser and its commands that users may shorten, hidden and deprecated ones included.
class Abbreviations {
public:
    /// Reads what text() wrote. Throws std::invalid_argument for any other text.
    static Abbreviations read(Text text);

    /// A small text with one line for each name, to be kept with a release. The shortest forms stand in it for readers;
    /// only the names are read again.
    const std::string& text() const { return written; }

    /// In the order of declaration; those of a command behind the command.
    const std::vector<Abbreviation>& all() const { return entries; }

private:
    std::string written;
    std::vector<Abbreviation> entries;
};

/// What a new version takes from users.
struct BrokenAbbreviation : AbbreviatedName {
    std::vector<std::string> typed;  ///< All that meant the name, and does so no longer; the shortest first.
    std::vector<std::string> now;    ///< What the first of them means: nothing, another name, or several.

    /// "'--o-d' meant '--output-dir' and is ambiguous now: '--output-dir', '--overlay-depth'"
    std::string text() const;
};

/// All that users of the earlier version could type, shortened or in full, and that the later one does not know, finds
/// ambiguous or takes for something else. Empty if the promise is kept; it never speaks of what is new. Each is found
/// out by asking both versions what they make of every form of every name.
///
/// A form cuts each word of a name to a beginning, of which all but the first may be empty. A name of more than 200000
/// forms is looked at with words of at most three letters and in full. Two names that meant one option before have to
/// do so still. Letters that are typed together ("-vq") are not looked at.
std::vector<BrokenAbbreviation> brokenAbbreviations(const Abbreviations& before, const Abbreviations& after);

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
