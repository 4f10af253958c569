// The table: everything that a host has declared of one parser, entered once. Rules, parsing, help, completion and
// suggestions all read it here. Declarations (declaration.cpp) and the parser's own operations (parser.cpp) write it.
#ifndef VORN_HOST_TABLE_H
#define VORN_HOST_TABLE_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kept_texts.h"
#include "name_index.h"
#include "text_parts.h"
#include "vorn/host/key.h"
#include "vorn/host/option.h"
#include "vorn/host/parser.h"
#include "vorn/host/values.h"

namespace vorn_3_1::host::detail {

/// The values that are allowed, if not all are.
struct Choices {
    std::vector<std::string> names;  ///< One for each value, if only names can be typed.
    Owned<Values> values;
};

/// The smallest and the largest value; either may be missing.
struct Limits {
    Owned<Values> low;
    Owned<Values> high;
    IsLess isLess = nullptr;
};

/// What few declarations have; made when it is first needed.
struct Details {
    std::vector<std::string> synonyms;
    std::string metavar;
    std::string environment;
    std::string instead;  ///< Of a deprecated option: what to use.
    Choices choices;
    Limits limits;
    Owned<Values> defaults;
    Owned<Values> implicit;
    std::vector<Owned<Check>> checks;
    std::vector<AnyKey> needs;  ///< Of this parser or an outer one.
    Owned<Offer> offer;
};

/// One declaration. Small, since commands that are not chosen leave theirs unused.
struct Record {
    std::string_view names;  ///< As declared; the table keeps the text, with a NUL behind it.
    std::string_view description;
    std::string_view group;  ///< The heading in help.
    const TypeFacts* type = nullptr;
    Owned<Details> details;  ///< Null at first.
    unsigned atLeast = 0;    ///< Of a positional argument that takes the rest.
    What what = What::option;
    Completion completion = Completion::nothing;
    char separator = '\0';  ///< Of a list; NUL where the text is one value.
    bool isRepeated = false;
    bool isRequired = false;
    bool isOptional = false;
    bool takesRest = false;
    bool isHidden = false;
    bool isDeprecated = false;
    bool isGlobal = false;
    bool isOnlyTyped = false;  ///< Only the command line may have it.
    bool isSecret = false;     ///< Nobody is shown its value.

    std::string_view firstName() const { return detail::firstName(names); }
    std::vector<std::string> allNames() const;
    bool isOption() const { return what != What::positional && what != What::rest; }
    bool isPositional() const { return !isOption(); }
    bool hasValue() const { return what == What::option || isPositional(); }
    bool isBuiltIn() const { return what >= What::help; }
    /// A positional argument that takes one text, if there is one to spare.
    bool mayBeLeftOut() const { return !takesRest && (isOptional || defaults() != nullptr); }
    bool collects() const { return separator != '\0' || isRepeated || takesRest; }
    const Values* defaults() const { return details ? details->defaults.get() : nullptr; }
    const Values* implicit() const { return details ? details->implicit.get() : nullptr; }
    const Values* choices() const { return details ? details->choices.values.get() : nullptr; }
    bool areChoicesNamed() const { return details && !details->choices.names.empty(); }
    /// The choices as a user would type them; none if all values are allowed.
    std::vector<std::string> choiceTexts() const;

    /// "--quality", "-q" or "IMAGE", as messages show it.
    std::string shownName() const;
    /// What help calls its value.
    std::string metavar() const;
    /// A value as a user would type it.
    std::string shownValue(const Values& values, std::size_t index) const;
};

/// "--name", or "-n" for a single character.
std::string hyphened(std::string_view name);

/// Exclusive options, or those of which one has to be given.
struct RuleGroup {
    std::vector<unsigned> members;
    bool needsOne;
};

struct SettingsSource {
    std::string text;  ///< A path, or the settings themselves.
    std::string name;  ///< Of a text, for messages.
    bool isText;
    bool mayBeMissing;
};

class Library;

class Table {
public:
    Table(std::string_view tableNames, std::string_view about, Table* outside);
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;
    ~Table();

    /// Enters a declaration. Throws RegistrationError, with the table as it was.
    unsigned enter(std::string_view declared, std::string_view about, What what, const TypeFacts& type);
    Table& enterCommand(std::string_view declared, std::string_view about);

    /// Enters a rule for several options. Throws RegistrationError for keys of other parsers.
    void enterGroup(std::initializer_list<AnyKey> keys, bool needsOne);

    /// Whatever is declared is looked at all the time while a parse goes on: throws std::logic_error then.
    void refuseWhileBusy();

    /// Called after each change of a record: throws at once if it contradicts itself, but not for a command, which is
    /// looked at when it is chosen.
    void recheck(unsigned number);

    /// Makes the table ready for parsing: enters help and version, and for a command all names. Throws
    /// RegistrationError for what is wrong with the whole.
    void seal();

    /// All that seal would throw, of this table and its commands.
    void collectFaults(std::vector<std::string>& faults);

    /// Null if no option has this full name, or "no-" name.
    const NameMeaning* find(std::string_view name) const { return optionNames.find(name); }
    /// The same with the names of positional arguments, which go before help and version.
    const NameMeaning* findDeclared(std::string_view name) const;
    /// Enters a further name, whose text the record keeps. Throws if it is taken or nobody could type it.
    void enterSynonym(std::string_view name, unsigned number);

    /// The record that a key names. Throws RegistrationError if the key is another parser's.
    unsigned indexOf(AnyKey key, const char* use) const;
    /// The parser that the key is of, this one or an outer one, or null.
    const Table* ownerOf(AnyKey key) const;

    /// A copy that lives as long as the table, with a NUL behind it.
    std::string_view keep(std::string_view text) { return kept.keep(text, {}); }
    /// The command of this full name, or null.
    const NameMeaning* findCommand(std::string_view name) const { return commandNames.find(name); }

    bool isCommand() const { return outer != nullptr; }
    Table& root() { return outer != nullptr ? outer->root() : *this; }
    /// Of a command.
    std::string_view firstName() const { return detail::firstName(names); }
    /// "nctl remove": the commands that lead here.
    std::string path() const;
    bool hasPositionals() const;
    /// Whether this has been asked for here or further out.
    bool has(bool Table::*request) const {
        return this->*request || (outer != nullptr && outer->has(request));
    }
    /// What changes whenever a declaration does, here or further out.
    unsigned long changesWithOuter() const {
        return changes + (outer != nullptr ? outer->changesWithOuter() : 0);
    }

    unsigned id;
    unsigned owners = 1;  ///< Of the outermost table: the parser and its results.
    Table* outer;
    KeptTexts kept;     ///< Those of records and the names.
    std::string names;  ///< The program's name; of a command, all of its names.
    std::string description;
    std::string versionText;
    std::string epilogue;
    Colours colours = Colours::automatic;
    std::string_view group;                     ///< Of what is declared next.
    std::string completionName = "completion";  ///< Of the hidden option; empty if there is none.
    std::vector<Record> records;
    std::vector<std::unique_ptr<Table>> commands;
    std::vector<RuleGroup> groups;
    std::vector<SettingsSource> settings;
    bool readsJoinedShort = false;
    bool readsResponseFiles = false;
    bool ignoresUnknown = false;
    bool isBusy = false;  ///< Parsing, in the outermost table.
    unsigned long changes = 0;
    std::unique_ptr<Library> library;  ///< What is declared, registered with the library.
    std::unique_ptr<Library> commandLibrary;
    unsigned long libraryChanges = 0;  ///< When that was.
    Parser self;                       ///< What a host holds of a command.

private:
    static constexpr unsigned long noChanges = static_cast<unsigned long>(-1);

    void enterNames(unsigned number);
    void enterName(std::string_view name, unsigned number);
    void enterForm(std::string_view form, NameMeaning meaning);
    void enterBuiltIns();
    void dropBuiltIns();
    void checkRecord(const Record& record) const;
    void checkGroup(const RuleGroup& rule) const;
    void checkNeeds(unsigned number) const;
    void checkGlobalName(const std::string& name, bool isSwitch) const;
    bool isTaken(std::string_view name) const;
    void examineAll(std::vector<std::string>* faults);

    NameIndex optionNames;
    NameIndex positionalNames;  ///< No names on a command line.
    NameIndex commandNames;
    bool areNamesEntered = false;   ///< Of a command: not before it is chosen.
    std::size_t declaredNames = 0;  ///< How many stand in front of those of --help and its like.
    unsigned long sealedChanges = noChanges;
};

void release(Table* root);

}  // namespace vorn_3_1::host::detail

#endif
