// The parser: declaring what a tool takes, and parsing it.
#ifndef VORN_HOST_PARSER_H
#define VORN_HOST_PARSER_H

#if __cplusplus >= 201703L

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "vorn/host/error.h"
#include "vorn/host/key.h"
#include "vorn/host/option.h"
#include "vorn/host/result.h"
#include "vorn/host/text.h"

namespace vorn_3_1::host {

namespace detail {
class Environment;
}

/// One variable of an environment that a host makes up, for instance in its tests.
struct Variable {
    std::string name;
    std::string value;
};

class Abbreviations;

/// Whether settings may be missing.
enum class Missing { refused, allowed };

/// Whether help is written with colours. Left to itself, a terminal gets them unless NO_COLOR is set.
enum class Colours { automatic, always, never };

// In host/help.h.
struct OptionInfo;
struct HelpPage;
struct HelpStyle;

/// Declares what a tool takes, parses its arguments and tells users about it. Movable; a moved-from parser is only
/// good for being destroyed or assigned to. Throws std::bad_alloc when memory runs out; the call can be repeated.
///
/// Names are several separated by ','; the first one stands for the option in messages. A name is cut into words at
/// '-', and users may shorten every word.
class Parser {
public:
    /// `program` is the tool's name, as messages and help show it.
    explicit Parser(Text program, Text description = {});
    Parser(Parser&& other) noexcept;
    Parser& operator=(Parser&& other) noexcept;
    ~Parser();

    // Declaring. Each throws RegistrationError for what contradicts itself or an earlier declaration; the parser is
    // as before then.

    /// An option with a value.
    template <class T>
    Option<T, detail::Reads::perhaps, detail::Role::option> add(Text names, Text description) {
        return builder<T, detail::Reads::perhaps, detail::Role::option>(names, description,
                                                                        detail::What::option);
    }

    /// A switch: --name and --no-name.
    Option<bool, detail::Reads::always, detail::Role::toggle> addSwitch(Text names, Text description) {
        return builder<bool, detail::Reads::always, detail::Role::toggle>(names, description,
                                                                          detail::What::toggle);
    }

    /// An option without a value: given or not.
    Option<bool, detail::Reads::always, detail::Role::occurrence> addFlag(Text names, Text description) {
        return builder<bool, detail::Reads::always, detail::Role::occurrence>(names, description,
                                                                              detail::What::flag);
    }

    /// An option without a value that says more when it is given more often.
    Option<int, detail::Reads::always, detail::Role::occurrence> addCount(Text names, Text description) {
        return builder<int, detail::Reads::always, detail::Role::occurrence>(names, description,
                                                                             detail::What::count);
    }

    /// A positional argument, exactly one unless optional() or atLeast(n) say otherwise. As in `cp SOURCE... DEST`,
    /// those with a fixed number get theirs first, from both ends, and one may take the rest.
    template <class T>
    Option<T, detail::Reads::one, detail::Role::argument> addPositional(Text name, Text description) {
        return builder<T, detail::Reads::one, detail::Role::argument>(name, description,
                                                                      detail::What::positional);
    }

    /// Everything from the first positional argument or "--" on, untouched: for tools that run another one.
    Option<std::string, detail::Reads::several, detail::Role::argument> rest(Text name, Text description) {
        return builder<std::string, detail::Reads::several, detail::Role::argument>(name, description,
                                                                                    detail::What::rest);
    }

    /// A command, which is a parser of its own. It lives as long as the outer parser. Users may shorten its name by
    /// words; further names are synonyms. The first argument that is none of the outer parser's options chooses it,
    /// and what follows is the command's. Commands may have commands.
    Parser& command(Text names, Text description);

    /// The heading that help shows above what is declared from here on.
    Parser& group(Text title);

    // Rules.

    /// At most one of them may be given.
    Parser& exclusive(std::initializer_list<AnyKey> keys);
    /// Exactly one of them has to be given.
    Parser& oneOf(std::initializer_list<AnyKey> keys);

    // How arguments are read.

    /// Registers --version, which shows this text behind the program's name.
    Parser& version(Text text);
    /// What help shows at its end: examples, where to report mistakes.
    Parser& epilogue(Text text);
    /// Whether parseOrExit writes help with colours; for the outermost parser.
    Parser& colours(Colours wanted);
    /// Renames the option that prints a shell's completion script, which is --completion otherwise; an empty name drops
    /// it. It is no option like others: it counts typed in full and as the first argument only, in parseOrExit.
    Parser& completion(Text name);
    /// Reads -vvq, -j4 and -Idir letter by letter, where the letters are names and nothing else is meant.
    Parser& joinedShort();
    /// Reads each separate argument "@file" as a file with one argument per line, in its place.
    Parser& responseFiles();
    /// Drops options and arguments that nobody knows.
    Parser& ignoreUnknown();
    /// Reads options from a file, one argument per line, ahead of the environment and the command line. Of several
    /// settings a later one wins. They are read when the parser parses; a relative path is looked up then.
    Parser& settings(Text path, Missing missing = Missing::refused);
    /// The same from a text; messages name it so.
    Parser& settings(Text text, Text name);

    // Help. It needs no parse, and looks at no environment but the one that is handed over. What a parser takes is
    // known only once its declarations fit together: each throws RegistrationError if they do not.

    /// What --help shows, 80 columns wide, or as the style says.
    std::string help() const;
    std::string help(const HelpStyle& style) const;
    /// The same as data; include host/help.h. Of the style, the columns and colours mean nothing here.
    HelpPage page(const HelpStyle& style) const;
    /// All that was declared of this parser, in that order, and --help and its like. Commands have theirs.
    std::vector<OptionInfo> options(const std::vector<Variable>& environment = {}) const;
    /// The manual page of the whole tool, commands included, for man(1). `date` is shown at its foot; without one it is
    /// the day that SOURCE_DATE_EPOCH names, or today.
    std::string manual(Text date = {}, Text section = "1") const;

    // Parsing.

    /// Parses without reading any environment but the one that is handed over. `argv[0]` is skipped. Throws
    /// std::invalid_argument if `argc` is above 0 and `argv` or one of its elements is null.
    [[nodiscard]] Outcome parse(int argc, const char* const* argv,
                                const std::vector<Variable>& environment = {});
    /// The same for arguments without the program's name.
    [[nodiscard]] Outcome parse(std::initializer_list<Text> arguments,
                                const std::vector<Variable>& environment = {});
    [[nodiscard]] Outcome parse(const std::vector<std::string>& arguments,
                                const std::vector<Variable>& environment = {});

    /// Parses, and returns if the host has something to do. Otherwise it ends the process: with help or the version on
    /// standard output and code 0, or with the first mistake on standard error and code 2. Output that cannot be
    /// written ends with code 1. Reads the process's environment. Warnings go to standard error.
    [[nodiscard]] Result parseOrExit(int argc, const char* const* argv);

    /// Ends the process as parseOrExit does for a mistake: for what only the host can find wrong.
    [[noreturn]] void fail(Text text) const;

    /// Throws RegistrationError with all contradictions of this parser and its commands, a line each. For a host's
    /// tests: what is not chosen is otherwise not looked at.
    void verify();

    /// What users may type for each name; see abbreviations.h.
    Abbreviations abbreviations();

    /// What is in force in the result, as a settings text that reads back to the same; each line stands below a
    /// comment with its origin.
    std::string effective(const Result& result) const;

private:
    friend class detail::Table;

    template <class T, detail::Reads reads, detail::Role role>
    Option<T, reads, role> builder(Text names, Text description, detail::What what) {
        return Option<T, reads, role>(declare(names, description, what, detail::TypeFactsOf<T>::facts));
    }
    detail::Declaration declare(Text names, Text description, detail::What what,
                                const detail::TypeFacts& type);
    explicit Parser(detail::Table& command);
    Outcome parse(std::vector<std::string> texts, const detail::Environment& environment);

    detail::Table* table;
    bool isOwner;  ///< Commands belong to their outer parser.
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
