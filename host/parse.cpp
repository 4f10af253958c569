// The steps of one parse, in the order of Parse::run:
//
//     for the program, then for each chosen command
//         enter              makes the table ready, and a level for its values
//         walkSettings       } each finds out which arguments are options and which are values, and leaves a stage:
//         walkEnvironment    } a list that the library can read
//         walkLine           } up to the next command
//     readStage, for each    the library reads the list; its events (option, value, occurrence) fill the slots
//     distribute             the positional texts go to their declarations
//     applyRules             groups, what is required, what needs another one
//
// Settings and variables of all commands are read in front of the whole command line, so that their positions are lower
// than those of its arguments. No mistake ends the steps: it is noted with its order, and they go on.
#include "parse.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "mistakes.h"
#include "shown_text.h"
#include "sources.h"

namespace vorn_3_1::host::detail {

namespace {

// Ranks of what replaces what. Settings have those in between, a later one a higher one.
constexpr unsigned environmentRank = UINT_MAX - 1;
constexpr unsigned commandLineRank = UINT_MAX;

// What is missing comes behind all that was typed, positional arguments last.
constexpr std::size_t argumentOrder = static_cast<std::size_t>(-1);
constexpr std::size_t ruleOrder = argumentOrder - 1;

}  // namespace

/// The old registrations go first: if anything below throws, the next call begins anew. Sealing comes before
/// registering, since it enters help and version.
void prepare(Table& table) {
    if (table.library != nullptr && table.libraryChanges == table.changesWithOuter()) return;
    table.library.reset();
    table.commandLibrary.reset();
    table.seal();
    auto commands =
        table.commands.empty() ? nullptr : std::make_unique<Library>(table, Library::Of::commands);
    table.library = std::make_unique<Library>(table, Library::Of::options);
    table.commandLibrary = std::move(commands);
    table.libraryChanges = table.changesWithOuter();
}

Parse::Parse(Table& outermost, const Environment& variables)
    : data(std::make_unique<ResultData>(outermost)), root(outermost), environment(variables) {
    findings.data = data.get();
}

void Parse::run(std::vector<Argument> arguments) {
    if (!arguments.empty() && arguments.front().text == logSwitch) {
        isLogged = true;
        arguments.erase(arguments.begin());
    }
    for (Table* table = &root; table != nullptr;) {
        enter(*table);
        walkSettings(*table);
        walkEnvironment(*table);
        Table* chosen = walkLine(*table, arguments);
        if (chosen != nullptr) data->command = &chosen->self;
        table = chosen;
    }
    for (std::vector<Stage>* stages : {&before, &lines}) {
        for (Stage& each : *stages)
            readStage(each);
    }
    // Whoever asks for help is not told what is missing.
    if (findings.asked != Outcome::Asked::nothing) return;
    distribute(*data->levels.back().table);
    for (Level& level : data->levels)
        applyRules(*level.table);
}

std::vector<Error> Parse::errors() {
    std::vector<Error> all;
    for (auto& found : findings.errors)
        all.push_back(std::move(found.second));
    return all;
}

void Parse::enter(Table& table) {
    prepare(table);
    Level level;
    level.table = &table;
    level.slots.resize(table.records.size());
    data->levels.push_back(std::move(level));
}

void Parse::addStage(Walk& walk, Table& table, unsigned rank) {
    std::vector<Stage>& stages = rank == commandLineRank ? lines : before;
    nextOrder += walk.done.size();
    stages.push_back({std::move(walk.done), std::move(walk.tokens), rank, walk.order, &table});
}

/// Each source is a stage of its own with the next higher rank: of two files the later one wins, and a command's wins
/// over those of its outer parsers.
void Parse::walkSettings(Table& table) {
    for (const SettingsSource& settings : table.settings) {
        ++settingsRank;
        const bool isNamed = !settings.isText || !settings.name.empty();
        const std::string& name = settings.isText ? settings.name : settings.text;
        std::string read;
        if (!settings.isText) {
            bool isMissing = false;
            const std::string reason = readTextFile(settings.text, read, isMissing);
            if (!reason.empty()) {
                if (!isMissing || !settings.mayBeMissing) {
                    findings.errors.emplace(nextOrder, unreadableFile(settings.text, reason));
                }
                continue;
            }
        }
        const unsigned source = data->addSource(Origin::Layer::settings, isNamed ? name : "settings");
        Walk walk(table, Walk::Over::settings, argumentsIn(settings.isText ? settings.text : read, source),
                  nextOrder, findings);
        walk.run();
        addStage(walk, table, settingsRank);
    }
}

/// Needs no walk: each variable is of one option, and its whole text is the value.
void Parse::walkEnvironment(Table& table) {
    Stage variables = {{}, {}, environmentRank, nextOrder, &table};
    for (unsigned i = 0; i < table.records.size(); ++i) {
        const Record& record = table.records[i];
        if (!record.details || record.details->environment.empty()) continue;
        const char* value = environment.find(record.details->environment);
        if (value != nullptr && *value != '\0') addVariable(table, i, value, variables);
    }
    if (variables.arguments.empty()) return;
    nextOrder += variables.arguments.size();
    before.push_back(std::move(variables));
}

/// Makes an argument of a variable: "--name=value", "--name" or "--no-name".
void Parse::addVariable(Table& table, unsigned index, const char* value, Stage& variables) {
    const Record& record = table.records[index];
    const unsigned source = data->addSource(Origin::Layer::environment, record.details->environment);
    variables.arguments.push_back({value, source, 0});
    const Argument& argument = variables.arguments.back();
    const std::size_t order = variables.order + variables.arguments.size() - 1;
    Token token;
    token.from = variables.arguments.size() - 1;
    token.table = &table;
    token.index = index;
    token.argument.text = "--" + std::string(record.firstName());
    if (record.what == What::option) {
        token.argument.text.append("=").append(value);
    } else if (Refusal refusal = readOccurrences(record, value, token.count)) {
        return refuse(record, value, std::move(refusal), argument, order);
    } else if (token.count == 0 && record.what == What::toggle) {
        token.argument.text.insert(2, "no-");
    }
    findings.advise(record);
    variables.tokens.push_back(std::move(token));
}

/// Returns the command that was chosen, with what follows it in `arguments`.
Table* Parse::walkLine(Table& table, std::vector<Argument>& arguments) {
    Walk walk(table, Walk::Over::commandLine, std::move(arguments), nextOrder, findings);
    walk.run();
    arguments = std::move(walk.left);
    const bool lacksCommand = !table.commands.empty() && walk.command == nullptr && !walk.endsEarly;
    addStage(walk, table, commandLineRank);
    if (lacksCommand && findings.asked == Outcome::Asked::nothing) report(missingCommand(table));
    return walk.command;
}

/// The library numbers the positions. It reads the tokens in their order, so that the number in each event is that of
/// the token.
void Parse::readStage(Stage& read) {
    if (read.tokens.empty()) return;
    stage = &read;
    placeOf.assign(read.tokens.size(), 0);
    std::vector<LibraryArgument> arguments;
    arguments.reserve(read.tokens.size());
    for (Token& token : read.tokens)
        arguments.push_back(std::move(token.argument));
    read.table->library->read(arguments, *this, isLogged);
    stage = nullptr;
}

/// The slot for values of this rank. One with values of a lower rank moves down and can still be read there. One of a
/// higher rank is returned as it is: whoever calls looks at the rank.
Slot& Parse::slotFor(const Table& table, unsigned index, unsigned rank) {
    Level& level = data->level(table);
    std::unique_ptr<Slot>& slot = level.slots[index];
    if (slot == nullptr || (slot->rank < rank && !slot->isEmpty())) {
        auto higher = std::make_unique<Slot>();
        higher->lower = std::move(slot);
        slot = std::move(higher);
    }
    if (slot->values == nullptr) slot->values.reset(table.records[index].type->make());
    slot->rank = std::max(slot->rank, rank);
    return *slot;
}

/// A flag, a count, or the beginning of something that has a value.
void Parse::option(std::size_t number) {
    const Token& token = stage->tokens[number];
    const Argument& argument = argumentOf(token);
    const Place place = {0, argument.source, argument.line};
    if (token.kind == Token::Kind::positional) {
        placeOf[number] = positionals.size();
        positionals.push_back({token.positionalText, place, stage->order + token.from});
        return;
    }
    const Record& record = token.table->records[token.index];
    if (record.what != What::flag && record.what != What::count) return;
    Slot& slot = slotFor(*token.table, token.index, stage->rank);
    if (slot.rank > stage->rank) return;
    placeOf[number] = slot.places.size();
    if (record.what == What::flag) {
        static_cast<TypedValues<bool>&>(*slot.values).items.push_back(token.count > 0);
    } else {
        std::vector<int>& counts = static_cast<TypedValues<int>&>(*slot.values).items;
        const int last = counts.empty() ? 0 : counts.back();
        counts.push_back(last > INT_MAX - token.count ? INT_MAX : last + token.count);
    }
    slot.places.push_back(place);
}

/// The text of an option is read at once, so that a refusal is known with its argument. That of a positional argument
/// waits for distribute: which declaration gets it depends on how many there are.
void Parse::value(std::size_t number, std::string_view text, int position) {
    const Token& token = stage->tokens[number];
    const Argument& argument = argumentOf(token);
    const Place place = {position, argument.source, argument.line};
    if (token.kind == Token::Kind::positional) {
        positionals[placeOf[number]].place = place;
        return;
    }
    const Record& record = token.table->records[token.index];
    Slot& slot = slotFor(*token.table, token.index, stage->rank);
    if (slot.rank > stage->rank) {
        Slot lower;  // what is replaced has to be right all the same
        lower.values.reset(record.type->make());
        if (record.what == What::option && !token.isImplicit) {
            readTexts(record, text, lower, place, stage->order + token.from, argument);
        }
    } else if (record.what == What::toggle) {
        static_cast<TypedValues<bool>&>(*slot.values).items.push_back(text == "1");
        slot.places.push_back(place);
    } else if (token.isImplicit) {
        slot.values->take(*record.implicit(), 0);
        slot.places.push_back(place);
    } else {
        readTexts(record, text, slot, place, stage->order + token.from, argument);
    }
}

void Parse::occurrence(std::size_t number, int position) {
    const Token& token = stage->tokens[number];
    if (token.kind == Token::Kind::positional) {
        positionals[placeOf[number]].place.position = position;
        return;
    }
    Slot& slot = *data->level(*token.table).slots[token.index];
    if (slot.rank == stage->rank) slot.places[placeOf[number]].position = position;
}

/// Nothing of the text is kept if anything is wrong.
void Parse::readTexts(const Record& record, std::string_view text, Slot& slot, Place place, std::size_t order,
                      const Argument& argument) {
    if (Refusal refusal = readItems(record, text, *slot.values)) {
        return refuse(record, text, std::move(refusal), argument, order);
    }
    slot.places.resize(slot.values->size(), place);
}

void Parse::refuse(const Record& record, std::string_view text, Refusal refusal, const Argument& argument,
                   std::size_t order) {
    Error error;
    error.kind = refusal.kind;
    error.option = record.firstName();
    error.value = refusal.value.empty() ? std::string(text) : std::move(refusal.value);
    error.reason = std::move(refusal.reason);
    error.candidates = std::move(refusal.candidates);
    error.sentence = std::move(refusal.sentence);
    findings.refused.push_back(&record);
    findings.add(std::move(error), argument, order);
}

/// Gives each positional argument its texts: those that take one get theirs first, from both ends, then those that may
/// be left out, and one takes the rest.
///
///     declared           typed      gives
///     SOURCE... DEST     a b c      SOURCE: a b     DEST: c
///     FROM [TO] MORE...  a b        FROM: a         MORE: b, which needs one at least; nothing is left for TO
void Parse::distribute(Table& table) {
    std::size_t needed = 0;
    const Record* rest = nullptr;
    for (const Record& record : table.records) {
        if (!record.isPositional() || record.isOptional) continue;
        if (record.takesRest) rest = &record;
        if (!record.takesRest && record.defaults() == nullptr) ++needed;
    }
    // With a default it may be left out as a whole, but is not given less than it needs.
    const bool isRestLeftOut = rest != nullptr && rest->defaults() != nullptr && positionals.size() <= needed;
    if (rest != nullptr && !isRestLeftOut) needed += rest->atLeast;
    std::size_t spare = positionals.size() > needed ? positionals.size() - needed : 0;
    std::size_t forOptional = 0;
    for (const Record& record : table.records) {
        const bool mayLack = record.isPositional() && record.mayBeLeftOut();
        if (mayLack && forOptional < spare) ++forOptional;
    }
    std::size_t forRest = spare - forOptional;
    std::size_t next = 0;
    for (unsigned i = 0; i < table.records.size(); ++i) {
        const Record& record = table.records[i];
        if (!record.isPositional()) continue;
        std::size_t wanted = 1;
        if (record.takesRest) {
            wanted = isRestLeftOut ? 0 : record.atLeast + std::exchange(forRest, 0);
        } else if (record.mayBeLeftOut()) {
            wanted = forOptional > 0 ? 1 : 0;
            forOptional -= wanted;
        }
        const std::size_t end = std::min(next + wanted, positionals.size());
        if (end - next < wanted)
            findings.errors.emplace(argumentOrder,
                                    missingArgument(record, static_cast<unsigned>(end - next)));
        for (; next < end; ++next)
            readPositional(record, i, positionals[next]);
    }
    for (; next < positionals.size() && !table.has(&Table::ignoresUnknown); ++next) {
        const PositionalText& extra = positionals[next];
        findings.add(unexpectedArgument(extra.text), {extra.text, extra.place.source, extra.place.line},
                     extra.order);
    }
}

void Parse::readPositional(const Record& record, unsigned index, const PositionalText& text) {
    Slot& slot = slotFor(*data->levels.back().table, index, commandLineRank);
    readTexts(record, text.text, slot, text.place, text.order,
              {text.text, text.place.source, text.place.line});
}

bool Parse::wasRefused(const Record& record) const {
    return std::find(findings.refused.begin(), findings.refused.end(), &record) != findings.refused.end();
}

/// Groups before what is missing: a member that a higher layer outweighs is no longer given.
void Parse::applyRules(Table& table) {
    Level& level = data->level(table);
    for (const RuleGroup& group : table.groups)
        applyGroup(level, group);
    reportMissing(level);
}

/// Of a group, only the highest layer that has a member counts.
void Parse::applyGroup(Level& level, const RuleGroup& group) {
    unsigned rank = 0;
    for (const unsigned member : group.members) {
        if (level.isGiven(member)) rank = std::max(rank, level.slots[member]->rank);
    }
    const Record* first = nullptr;
    const Record* second = nullptr;
    for (const unsigned member : group.members) {
        if (!level.isGiven(member)) continue;
        const Record& record = level.table->records[member];
        if (level.slots[member]->rank < rank) {
            level.slots[member]->clear();
        } else if (first == nullptr) {
            first = &record;
        } else if (second == nullptr) {
            second = &record;
        }
    }
    const auto isRefused = [&](unsigned member) { return wasRefused(level.table->records[member]); };
    const bool isAnyRefused = std::any_of(group.members.begin(), group.members.end(), isRefused);
    if (second != nullptr) return report(conflict(*first, *second));
    if (first == nullptr && group.needsOne && !isAnyRefused) report(missingOneOf(*level.table, group));
}

/// What was given wrongly is not missing as well: one mistake, one message.
void Parse::reportMissing(const Level& level) {
    for (unsigned i = 0; i < level.table->records.size(); ++i) {
        const Record& record = level.table->records[i];
        const bool isGiven = level.isGiven(i);
        if (record.isRequired && !isGiven && !wasRefused(record)) report(missingOption(record));
        if (!isGiven || !record.details) continue;
        for (const AnyKey needed : record.details->needs) {
            const Level& owner = *data->level(needed);  // this one, or an outer parser's
            const Record& other = owner.table->records[needed.index];
            if (!owner.isGiven(needed.index) && !wasRefused(other)) report(missingCompanion(record, other));
        }
    }
}

void Parse::report(Error error) { findings.errors.emplace(ruleOrder, std::move(error)); }

}  // namespace vorn_3_1::host::detail
