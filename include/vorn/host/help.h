// Help as data: what a parser takes, for hosts that show it in a form of their own. Parser::help and Parser::manual are
// made from the same.
#ifndef VORN_HOST_HELP_H
#define VORN_HOST_HELP_H

#if __cplusplus >= 201703L

#include <string>
#include <vector>

#include "vorn/host/parser.h"

namespace vorn_3_1::host {

/// One option or positional argument. Texts are as the host gave them; values as a user would type them.
struct OptionInfo {
    enum class Kind { option, toggle, flag, count, positional, rest };

    Kind kind = Kind::option;
    std::vector<std::string> names;  ///< As declared, without hyphens; the first one is used in messages.
    std::vector<std::string>
        forms;            ///< As users see them, short ones first: "-q", "--quality", "--[no-]quiet".
    std::string metavar;  ///< What stands for the value; empty if there is none.
    std::string description;
    std::string group;                  ///< The heading that it stands under; empty for none.
    std::vector<std::string> choices;   ///< The allowed values; empty if they are not listed.
    std::string lowest, highest;        ///< The ends of its range; empty where there is none.
    std::vector<std::string> defaults;  ///< As declared; of a switch "on" or "off".
    std::string implicit;               ///< The value if it stands alone; empty if it needs one.
    std::string variable;               ///< The variable that is read; empty for none.
    std::vector<std::string>
        fromVariable;                   ///< The values that it has there; empty if it is not set or wrong.
    std::vector<std::string> needs;     ///< The first names of what has to be given with it.
    std::vector<std::string> excludes;  ///< The first names of what must not.
    std::string instead;                ///< The advice of a deprecated option.
    char separator = '\0';              ///< Of a list; NUL where a text is one value.
    unsigned atLeast = 0;               ///< How many arguments have to be there.
    bool takesRest = false;             ///< A positional argument that may stand several times.
    bool isRequired = false;            ///< An option that has to be given, or an argument.
    bool isRepeated = false;            ///< The values of all occurrences count.
    bool isHidden = false;
    bool isDeprecated = false;
    bool isGlobal = false;
    bool isOnlyTyped = false;  ///< Settings must not have it.
    bool isSecret = false;     ///< Its defaults, and what a variable says, are left out.
    bool isBuiltIn = false;    ///< --help and the like, which no host declared.

    bool hasValue() const { return kind == Kind::option || isPositional(); }
    bool isPositional() const { return kind == Kind::positional || kind == Kind::rest; }
};

/// One entry of a help page. In the notes, values are escaped and cut where they are too long, since a variable may hold
/// anything. The other texts are as the host gave them.
struct HelpEntry {
    std::vector<std::string> forms;  ///< "-q" and "--quality", "IMAGE", or the names of a command.
    std::string value;               ///< What follows the last form: " N", "[=WHEN]", " PIXELS,...", "...".
    std::string description;
    std::vector<std::string> notes;  ///< "1 to 100", "default: 80".
};

struct HelpSection {
    enum class Kind { arguments, options, globalOptions, commands };

    Kind kind = Kind::options;
    std::string title;
    std::vector<HelpEntry> entries;
};

/// The help of one parser.
struct HelpPage {
    std::string program;             ///< With the commands that lead there: "nctl add".
    std::vector<std::string> usage;  ///< What may follow: "[OPTION...]", "--output-dir DIR", "IMAGE...".
    std::string description;
    std::vector<HelpSection> sections;
    std::string epilogue;
};

/// How help is to look.
struct HelpStyle {
    unsigned columns = 80;              ///< No line is wider.
    bool hasColours = false;            ///< With a terminal's sequences for bold letters.
    bool showsAll = false;              ///< Hidden and deprecated options, too.
    std::vector<Variable> environment;  ///< Where the values of variables are looked up.
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
