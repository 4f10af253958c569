// The walk over the arguments of one parser: which of them are options, where a value begins and ends, what is
// positional, where a command begins. It asks the library for every name, and leaves a list that the library can read
// without a question.
//
//     -vq --size 5 a.png        ->   -v   -q   --size=5   a.png
#ifndef VORN_HOST_WALK_H
#define VORN_HOST_WALK_H

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library.h"
#include "mistakes.h"
#include "result_data.h"

namespace vorn_3_1::host::detail {

/// An argument for the library, and what is known of it.
struct Token {
    enum class Kind { option, positional, passedThrough };

    Kind kind = Kind::option;
    LibraryArgument argument;
    std::size_t from = 0;  ///< The argument that it comes from.
    Table* table = nullptr;
    unsigned index = 0;
    std::string positionalText;
    bool isImplicit = false;  ///< The option stands alone, and its implicit value counts.
    int count = 1;            ///< How often a counted option is given.
};

/// What all walks of one parse add to.
struct Findings {
    std::multimap<std::size_t, Error> errors;  ///< By the order of the arguments that they are about.
    std::vector<std::string> advice;
    std::vector<const Record*> advised;
    std::vector<const Record*>
        refused;  ///< There is a mistake in them, so that they are not missing as well.
    Outcome::Asked asked = Outcome::Asked::nothing;
    bool isHelpWord = false;  ///< Asked for by a word, behind which commands may follow.
    bool asksForAll = false;
    Table* askedTable = nullptr;
    ResultData* data = nullptr;

    void add(Error error, const Argument& argument, std::size_t order);
    void advise(const Record& record);
};

class Walk {
public:
    enum class Over { settings, commandLine };

    /// `first` is the order of the first argument among all that are read; see Findings.
    Walk(Table& walked, Over kind, std::vector<Argument> arguments, std::size_t first, Findings& found);

    void run();

    std::vector<Argument> done;  ///< What was walked over, response files in the place of their names.
    std::vector<Token> tokens;
    Table* command = nullptr;    ///< The command that was chosen.
    std::vector<Argument> left;  ///< What follows it.
    std::size_t order;
    bool endsEarly = false;           ///< An unknown command: nothing more can be said.
    const Record* waiting = nullptr;  ///< The option whose value would come next, if the arguments end there.
    bool isBehindTerminator = false;
    std::size_t positionals = 0;  ///< Found so far.

private:
    struct Pending {
        Argument argument;
        std::optional<Meaning> meaning;  ///< Asked for.
    };

    const Argument& take();
    void takeNamed();
    void takeWord();
    void takeRest();
    void takeTerminator();
    void takeFound(const Meaning& meaning, std::string_view name, std::string_view value, bool hasSign);
    void takeBuiltIn(const Record& record, Table& owner);
    void takeValue(const Meaning& meaning, std::string_view name, std::string_view value, bool hasSign);
    void takeNextAsValue(const Meaning& meaning, std::string_view name);
    bool takeHelpWord(std::string_view typed);
    bool takeJoined(std::string_view typed);
    void chooseCommand();
    bool expandResponseFile();

    const Meaning& meaningOfNext();
    void askAhead();
    JoinedLetters joinedLetters(std::string_view typed);
    std::optional<Meaning> meaningOfLetter(std::string_view letter);
    bool isUnknownNegativeNumber(Pending& next);
    bool wantsNumber() const;

    Token& addOption(const Meaning& meaning, std::string text);
    void addPositional(std::string text);
    void fail(Error error);
    void fail(const Record& record, Error error);
    void fail(const Record& record, Error error, std::size_t from);

    Table& table;
    Over over;
    Findings& findings;
    std::vector<const Record*> wanted;  ///< The table's positional arguments.
    std::vector<Pending> todo;          ///< The next one last.
};

/// Asks the library for the meanings of typed names, with their hyphens. Names of one option that begin alike are no
/// ambiguity, unless only one of them switches off.
std::vector<Meaning> meaningsOf(Library& library, const std::vector<std::string>& names);

/// Whether a typed name, with its hyphens, can name an option at all.
bool canNameOption(std::string_view typed);

/// Splits "--name=value" at the first '='.
std::string_view nameOf(std::string_view argument);

}  // namespace vorn_3_1::host::detail

#endif
