// One parse: every layer, every command that is chosen, and the rules.
#ifndef VORN_HOST_PARSE_H
#define VORN_HOST_PARSE_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "result_data.h"
#include "table.h"
#include "value_reader.h"
#include "walk.h"

namespace vorn_3_1::host::detail {

/// The value of a variable, or null: a process's environment, or one that a host makes up.
class Environment {
public:
    virtual const char* find(const std::string& name) const = 0;

protected:
    ~Environment() = default;
};

class Parse final : private Reader {
public:
    Parse(Table& outermost, const Environment& variables);

    /// Everything from the arguments to the rules.
    void run(std::vector<Argument> arguments);

    std::unique_ptr<ResultData> data;
    Findings findings;

    /// All mistakes in the order in which they stand.
    std::vector<Error> errors();

private:
    /// Arguments of one source that are read together.
    struct Stage {
        std::vector<Argument> arguments;
        std::vector<Token> tokens;
        unsigned rank;
        std::size_t order;
        Table* table;
    };
    struct PositionalText {
        std::string text;
        Place place;
        std::size_t order;
    };

    void enter(Table& table);
    void walkSettings(Table& table);
    void walkEnvironment(Table& table);
    void addVariable(Table& table, unsigned index, const char* value, Stage& variables);
    Table* walkLine(Table& table, std::vector<Argument>& arguments);
    void addStage(Walk& walk, Table& table, unsigned rank);
    void readStage(Stage& read);
    void distribute(Table& table);
    void readPositional(const Record& record, unsigned index, const PositionalText& text);
    void applyRules(Table& table);
    void applyGroup(Level& level, const RuleGroup& group);
    void reportMissing(const Level& level);

    void option(std::size_t number) override;
    void value(std::size_t number, std::string_view text, int position) override;
    void occurrence(std::size_t number, int position) override;

    Slot& slotFor(const Table& table, unsigned index, unsigned rank);
    void readTexts(const Record& record, std::string_view text, Slot& slot, Place place, std::size_t order,
                   const Argument& argument);
    void refuse(const Record& record, std::string_view text, Refusal refusal, const Argument& argument,
                std::size_t order);
    const Argument& argumentOf(const Token& token) const { return stage->arguments[token.from]; }
    void report(Error error);
    bool wasRefused(const Record& record) const;

    Table& root;
    const Environment& environment;
    std::vector<Stage> before;  ///< Settings and the environment, which stand before the first argument.
    std::vector<Stage> lines;   ///< The command line's.
    Stage* stage = nullptr;     ///< The one that is read.
    std::vector<PositionalText> positionals;
    std::vector<std::size_t>
        placeOf;  ///< Of each token of the stage: its place in its slot, or its positional text.
    std::size_t nextOrder = 0;
    unsigned settingsRank = 0;  ///< Of the last settings, the outer parsers' among them.
    bool isLogged = false;
};

/// Makes the table ready and registers it with the library, unless that is done already.
void prepare(Table& table);

}  // namespace vorn_3_1::host::detail

#endif
