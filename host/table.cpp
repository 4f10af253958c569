// Entering declarations, and finding those that contradict themselves. When something is looked at:
//
//                              outermost parser                       command
//     names, one record        at once (enter, recheck)               when it is chosen (seal)
//     the whole of a parser    before a parse or help (seal)          when it is chosen
//     everything               in Parser::verify, which collects all faults instead of throwing the first
//
// Most commands are not chosen, and so their declarations cost hardly more than the memory. What fails takes back what
// it has entered, so that the table stays as it was.
#include "table.h"

#include <algorithm>
#include <utility>

#include "library.h"
#include "shown_text.h"
#include "text_parts.h"
#include "value_reader.h"

namespace vorn_3_1::host::detail {

namespace {

/// Keys of different parsers never look alike, dead parsers' included.
unsigned nextId() {
    static unsigned last = 0;
    return ++last;
}

[[noreturn]] void fail(std::string_view name, std::string_view fault) {
    throw RegistrationError(joined({"'", escaped(name), "': ", fault}));
}

/// Why nobody could type the name, or null.
const char* faultOf(std::string_view name) {
    if (name.empty()) return "a name is empty";
    if (name.front() == '-') return "a name is declared without its hyphens";
    if (std::none_of(name.begin(), name.end(), isLetterOrDigit)) return "a name needs a letter or a digit";
    for (const char character : name) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > '=' && byte != 0x7F) continue;  // a letter, mostly
        if (byte <= ' ' || byte >= '=') return "a name cannot hold '=', blanks or control characters";
    }
    return nullptr;
}

/// Where choices are few and short, they are what help calls the value.
std::string choicesAsMetavar(const Record& record) {
    constexpr std::size_t widest = 30;
    const std::string all = listed(record.choiceTexts(), "|");
    return all.size() <= widest ? all : record.type->metavar();
}

}  // namespace

std::vector<std::string> Record::allNames() const {
    std::vector<std::string> all = piecesOf(names, ',');
    if (details) all.insert(all.end(), details->synonyms.begin(), details->synonyms.end());
    return all;
}

std::vector<std::string> Record::choiceTexts() const {
    if (areChoicesNamed()) return details->choices.names;
    std::vector<std::string> texts;
    for (std::size_t i = 0; choices() != nullptr && i < choices()->size(); ++i)
        texts.push_back(choices()->show(i));
    return texts;
}

std::string hyphened(std::string_view name) { return (name.size() == 1 ? "-" : "--") + std::string(name); }

std::string Record::shownName() const { return escaped(isOption() ? hyphened(firstName()) : metavar()); }

std::string Record::metavar() const {
    if (details && !details->metavar.empty()) return details->metavar;
    if (isPositional()) return inCapitals(firstName());
    return choices() != nullptr ? choicesAsMetavar(*this) : type->metavar();
}

std::string Record::shownValue(const Values& values, std::size_t index) const {
    for (std::size_t i = 0; areChoicesNamed() && i < choices()->size(); ++i) {
        if (values.isSame(index, *choices(), i)) return details->choices.names[i];
    }
    return values.show(index);
}

Table::Table(std::string_view tableNames, std::string_view about, Table* outside)
    : id(nextId()), outer(outside), names(tableNames), description(about), self(*this) {}

Table::~Table() = default;

/// A result reads names and types in the table, so that it may outlive the parser: the last owner deletes the table.
void release(Table* root) {
    if (root != nullptr && --root->owners == 0) delete root;
}

/// Help and version give way to whatever a host declares, and come back with seal. A command's names wait for seal,
/// too: most commands are not chosen.
unsigned Table::enter(std::string_view declared, std::string_view about, What what, const TypeFacts& type) {
    if (what < What::help) dropBuiltIns();
    constexpr std::size_t usual = 16;  // spares a parser of ordinary size all growing but one
    if (records.empty()) records.reserve(usual);
    const auto number = static_cast<unsigned>(records.size());
    Record record;
    record.names = keep(declared);
    record.description = keep(about);
    record.group = group;
    record.type = &type;
    record.what = what;
    record.completion = type.completion;
    record.takesRest = what == What::rest;
    records.push_back(std::move(record));
    ++changes;
    if (isCommand() && !areNamesEntered) return number;
    const std::size_t options = optionNames.size();
    const std::size_t positionals = positionalNames.size();
    try {
        enterNames(number);
        // Nothing else can contradict itself that early.
        if (records.back().isPositional()) checkRecord(records.back());
    } catch (...) {
        optionNames.shrink(options);
        positionalNames.shrink(positionals);
        records.pop_back();
        throw;
    }
    return number;
}

Table& Table::enterCommand(std::string_view declared, std::string_view about) {
    forEachPiece(declared, ',', [&](std::string_view name) {
        if (const char* fault = faultOf(name)) fail(name, fault);
    });
    if (hasPositionals())
        fail(declared, "a parser with commands has no positional arguments; give them to the commands");
    const auto number = static_cast<unsigned>(commands.size());
    const std::size_t before = commandNames.size();
    commands.push_back(std::make_unique<Table>(declared, about, this));
    try {
        forEachPiece(keep(declared), ',', [&](std::string_view name) {
            if (!commandNames.add(name, {number, false})) fail(name, "there is a command of this name");
        });
    } catch (...) {
        commandNames.shrink(before);
        commands.pop_back();
        throw;
    }
    ++changes;
    return *commands.back();
}

void Table::enterNames(unsigned number) {
    const Record& record = records[number];
    forEachPiece(record.names, ',', [&](std::string_view name) { enterName(name, number); });
    if (!record.details) return;
    for (const std::string& name : record.details->synonyms)
        enterName(keep(name), number);  // the list may grow and move them
}

void Table::enterSynonym(std::string_view name, unsigned number) {
    if (isCommand() && !areNamesEntered) return;  // seal does it
    dropBuiltIns();
    const std::size_t before = optionNames.size();
    try {
        enterName(keep(name), number);
    } catch (...) {
        optionNames.shrink(before);  // a switch enters two forms, of which only the second may be taken
        throw;
    }
}

/// A switch answers to the "no-" forms of its names, too.
void Table::enterName(std::string_view name, unsigned number) {
    if (const char* fault = faultOf(name)) fail(name, fault);
    const bool isSwitch = records[number].what == What::toggle;
    if (isSwitch && name.substr(0, 3) == "no-")
        fail(name, "a switch of this name could only be switched off");
    enterForm(name, {number, false});
    if (isSwitch) enterForm(kept.keep("no-", name), {number, true});
}

/// Names of options and of positional arguments are kept apart, and none may be in both; but "help" may be a positional
/// argument beside --help.
void Table::enterForm(std::string_view form, NameMeaning meaning) {
    const Record& record = records[meaning.index];
    NameIndex& own = record.isPositional() ? positionalNames : optionNames;
    const NameIndex& others = record.isPositional() ? optionNames : positionalNames;
    const NameMeaning* taken = record.isBuiltIn() ? nullptr : others.find(form);
    if (taken == nullptr && own.add(form, meaning)) return;
    if (taken == nullptr) taken = own.find(form);
    const Record& owner = records[taken->index];
    fail(form, joined({"this name is taken by '", escaped(owner.firstName()), "'; choose another one"}));
}

const NameMeaning* Table::findDeclared(std::string_view name) const {
    const NameMeaning* positional = positionalNames.find(name);
    return positional != nullptr ? positional : find(name);
}

unsigned Table::indexOf(AnyKey key, const char* use) const {
    if (key.parser == id && key.index < records.size()) return key.index;
    throw RegistrationError(joined({use, ": the key belongs to another parser; use keys of this one"}));
}

const Table* Table::ownerOf(AnyKey key) const {
    if (key.parser == id && key.index < records.size()) return this;
    return outer != nullptr ? outer->ownerOf(key) : nullptr;
}

/// A member may become required later; checkGroup looks for that.
void Table::enterGroup(std::initializer_list<AnyKey> keys, bool needsOne) {
    RuleGroup entered = {{}, needsOne};
    for (const AnyKey key : keys) {
        const unsigned number = indexOf(key, "a rule for several options");
        if (records[number].isRequired) {
            fail(records[number].firstName(), "it is required, so that it cannot exclude another one");
        }
        if (std::find(entered.members.begin(), entered.members.end(), number) != entered.members.end())
            fail(records[number].firstName(), "it stands twice in a rule");
        entered.members.push_back(number);
    }
    if (keys.size() < 2) throw RegistrationError("a rule for several options needs two of them at least");
    groups.push_back(std::move(entered));
    ++changes;
}

std::string Table::path() const { return isCommand() ? joined({outer->path(), " ", firstName()}) : names; }

bool Table::hasPositionals() const {
    return std::any_of(records.begin(), records.end(),
                       [](const Record& record) { return record.isPositional(); });
}

void Table::refuseWhileBusy() {
    if (!root().isBusy) return;
    throw std::logic_error("vorn: the parser is parsing; a check must not declare anything");
}

void Table::recheck(unsigned number) {
    if (!isCommand() || areNamesEntered) checkRecord(records[number]);
}

namespace {

/// What a list could not read back.
void checkItem(const Record& record, const std::string& item, std::string_view what) {
    if (record.separator == '\0') return;
    if (item.empty()) fail(record.firstName(), joined({"its ", what, " has an empty item"}));
    const bool isCut = item.find(record.separator) != std::string::npos;
    if (isCut) fail(record.firstName(), joined({"its ", what, " holds the separator of the list"}));
}

void checkChoices(const Record& record) {
    std::vector<std::string> texts = record.choiceTexts();
    std::sort(texts.begin(), texts.end());
    if (!texts.empty() && texts[0].empty()) {
        fail(record.firstName(), "a choice is empty, and nobody could type it");
    }
    for (const std::string& text : texts)
        checkItem(record, text, "choice");
    for (std::size_t i = 0; record.choices() != nullptr && i < record.choices()->size(); ++i) {
        const Limits& limits = record.details->limits;
        const Values& choices = *record.choices();
        const bool isBelow = limits.low && limits.isLess(choices, *limits.low, i, 0);
        const bool isAbove = limits.high && limits.isLess(*limits.high, choices, 0, i);
        if (isBelow || isAbove) fail(record.firstName(), "a choice is out of its range");
    }
    const auto twice = std::adjacent_find(texts.begin(), texts.end());
    if (twice != texts.end()) {
        fail(record.firstName(), joined({"the choice '", escaped(*twice), "' stands twice"}));
    }
}

/// A default or an implicit value has to be one that a user could type.
void checkValues(const Record& record, const Values& values, std::string_view what) {
    const Values* choices = record.choices();
    for (std::size_t i = 0; i < values.size(); ++i) {
        bool isAllowed = choices == nullptr;
        for (std::size_t k = 0; choices != nullptr && k < choices->size(); ++k)
            isAllowed = isAllowed || values.isSame(i, *choices, k);
        if (!isAllowed) fail(record.firstName(), joined({"its ", what, " is not among the allowed values"}));
        checkItem(record, record.shownValue(values, i), what);
        const Refusal refusal = judgeValue(record, values, i, record.shownValue(values, i));
        if (refusal) fail(record.firstName(), joined({"its ", what, ": ", refusal.sentence}));
    }
}

void checkDetails(const Record& record) {
    const Details& details = *record.details;
    const std::string_view name = record.firstName();
    const Limits& limits = details.limits;
    if (limits.low && limits.high && limits.isLess(*limits.high, *limits.low, 0, 0)) {
        fail(name, "the end of its range is below the beginning");
    }
    checkChoices(record);
    if (details.implicit) checkValues(record, *details.implicit, "implicit value");
    if (!details.defaults) return;
    if (record.isRequired)
        fail(name, "it is required, so that its default is never used; drop one of the two");
    checkValues(record, *details.defaults, "default");
}

/// Of two records of one table.
bool standsBefore(const Record& left, const Record& right) { return &left < &right; }

/// What can only be said of a record once everything is declared.
void checkWhole(const Record& record) {
    const std::string_view name = record.firstName();
    if (record.hasValue() && !record.type->isTaught && !record.areChoicesNamed()) {
        fail(name, "its type is not known; name its values with named(), or teach the type");
    }
    const bool isSingle = !record.collects();
    if (isSingle && record.defaults() != nullptr && record.defaults()->size() != 1) {
        fail(name, "it has several defaults and takes one value; make it a list");
    }
}

/// Does one of several examinations. What is wrong is collected, or thrown if nobody collects.
template <class Examination>
void examine(std::vector<std::string>* faults, Examination examination) {
    if (faults == nullptr) return examination();
    try {
        examination();
    } catch (const RegistrationError& error) {
        // Two that contradict each other say so twice.
        if (std::find(faults->begin(), faults->end(), error.what()) == faults->end())
            faults->emplace_back(error.what());
    }
}

}  // namespace

void Table::checkRecord(const Record& record) const {
    const std::string_view name = record.firstName();
    if (record.isRequired && record.isDeprecated)
        fail(name, "it is required and deprecated; drop one of the two");
    if (record.isOptional && record.takesRest) fail(name, "say atLeast(0) instead of optional()");
    if (record.isPositional() && !commands.empty()) {
        fail(name, "a parser with commands has no positional arguments; give them to the commands");
    }
    for (const Record& other : records) {
        if (!record.isPositional()) break;
        if (&other == &record || !other.isPositional()) continue;
        const Record& earlier = std::min(record, other, standsBefore);
        const std::string_view later = std::max(record, other, standsBefore).firstName();
        if (other.what == What::rest || record.what == What::rest) {
            fail(later, "rest takes everything from the first positional argument on; declare no other one");
        }
        if (other.takesRest && record.takesRest) {
            fail(later, joined({"'", escaped(earlier.firstName()), "' takes all that is left already"}));
        }
    }
    if (record.details) checkDetails(record);
}

/// A member that always has to be given would make all the others impossible.
void Table::checkGroup(const RuleGroup& rule) const {
    for (const unsigned member : rule.members) {
        const Record& record = records[member];
        const bool isTaken =
            record.isPositional() && !record.mayBeLeftOut() && !(record.takesRest && record.atLeast == 0);
        if (!record.isRequired && !isTaken) continue;
        fail(records[member].firstName(), "it is required, so that it cannot exclude another one");
    }
}

/// Whatever has to be given together must not exclude each other.
void Table::checkNeeds(unsigned number) const {
    // Grows while it is gone through: what is needed may need more.
    std::vector<unsigned> together = {number};
    for (std::size_t i = 0; i < together.size(); ++i) {
        const Record& record = records[together[i]];
        if (!record.details) continue;
        for (const AnyKey needed : record.details->needs) {
            const bool isThere = std::find(together.begin(), together.end(), needed.index) != together.end();
            if (needed.parser == id && !isThere) together.push_back(needed.index);
        }
    }
    for (const RuleGroup& rule : groups) {
        std::vector<std::string> members;
        for (const unsigned one : together) {
            const bool isMember =
                std::find(rule.members.begin(), rule.members.end(), one) != rule.members.end();
            if (isMember) members.push_back("'" + records[one].shownName() + "'");
        }
        if (members.size() < 2) continue;
        fail(records[number].firstName(),
             joined({"nobody can give it, since ", listed(members, " and "),
                     " have to be given together and exclude each other; drop needs() or the rule"}));
    }
}

/// No name may be a global option's as well; a switch has two forms of each.
void Table::checkGlobalName(const std::string& name, bool isSwitch) const {
    if (find(name) == nullptr && (!isSwitch || find("no-" + name) == nullptr)) return;
    fail(name, joined({"the global option '", name, "' has this name"}));
}

/// Whether an option here or a global one has the name.
bool Table::isTaken(std::string_view name) const {
    for (const Table* owner = this; owner != nullptr; owner = owner->outer) {
        const NameMeaning* found = owner->find(name);
        if (found != nullptr && (owner == this || owner->records[found->index].isGlobal)) return true;
    }
    return false;
}

/// They stand behind all that a host has declared, and give way to whatever it declares later.
void Table::enterBuiltIns() {
    const TypeFacts& flag = TypeFactsOf<bool>::facts;
    declaredNames = optionNames.size();
    if (!isTaken("help")) {
        enter(isTaken("h") ? "help" : "help,h", "Show this help and exit.", What::help, flag);
    }
    const bool hidesSome = std::any_of(records.begin(), records.end(), [](const Record& record) {
        return record.isHidden || record.isDeprecated;
    });
    if (hidesSome && !isTaken("help-all")) {
        enter("help-all", "Show the help with all options and exit.", What::helpAll, flag);
    }
    if (!versionText.empty() && !isTaken("version")) {
        enter("version", "Show the version and exit.", What::version, flag);
    }
}

void Table::dropBuiltIns() {
    if (records.empty() || !records.back().isBuiltIn()) return;
    while (!records.empty() && records.back().isBuiltIn())
        records.pop_back();
    optionNames.shrink(declaredNames);
    ++changes;
}

/// Help does it as well as a parse, so that it is done again only when something was declared since.
void Table::seal() {
    if (sealedChanges == changesWithOuter()) return;
    examineAll(nullptr);
    sealedChanges = changesWithOuter();
}

/// Names come first, help and version last: which of their names are free is known only then, and they are entered only
/// where all other names could be.
void Table::examineAll(std::vector<std::string>* faults) {
    dropBuiltIns();
    const std::size_t before = faults != nullptr ? faults->size() : 0;
    const bool lacksNames = isCommand() && !areNamesEntered;
    if (lacksNames) {
        optionNames.shrink(0);
        positionalNames.shrink(0);
    }
    for (unsigned i = 0; lacksNames && i < records.size(); ++i)
        examine(faults, [&] { enterNames(i); });
    areNamesEntered = faults == nullptr || faults->size() == before;
    for (const Record& record : records) {
        if (isCommand()) examine(faults, [&] { checkRecord(record); });  // otherwise done with each change
        examine(faults, [&] { checkWhole(record); });
    }
    for (const RuleGroup& rule : groups)
        examine(faults, [&] { checkGroup(rule); });
    for (unsigned i = 0; i < records.size() && !groups.empty(); ++i) {
        const bool needsOthers = records[i].details && !records[i].details->needs.empty();
        if (needsOthers) examine(faults, [&] { checkNeeds(i); });
    }
    for (const Table* further = outer; further != nullptr; further = further->outer) {
        for (const Record& record : further->records) {
            if (!record.isGlobal) continue;
            for (const std::string& name : record.allNames())
                examine(faults, [&] { checkGlobalName(name, record.what == What::toggle); });
        }
    }
    if (areNamesEntered) enterBuiltIns();
}

void Table::collectFaults(std::vector<std::string>& faults) {
    std::vector<std::string> own;
    examineAll(&own);
    for (const std::string& fault : own)
        faults.push_back(isCommand() ? path() + ": " + fault : fault);
    for (const std::unique_ptr<Table>& command : commands)
        command->collectFaults(faults);
}

}  // namespace vorn_3_1::host::detail
