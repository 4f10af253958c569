// What is behind a result.
#ifndef VORN_HOST_RESULT_DATA_H
#define VORN_HOST_RESULT_DATA_H

#include <memory>
#include <string>
#include <vector>

#include "table.h"
#include "vorn/host/result.h"

namespace vorn_3_1::host::detail {

/// Where arguments come from: a file, a variable, or the command line itself, which has no name.
struct Source {
    Origin::Layer layer;
    std::string name;
};

/// One argument, and where it stands: the line of a file or the number of the argument.
struct Argument {
    std::string text;
    unsigned source = 0;
    int line = 0;
};

/// Where a value stands.
struct Place {
    int position;
    unsigned source;
    int line;
};

/// The values of one declaration, all from one layer, with a place for each.
struct Slot {
    std::unique_ptr<Values> values;
    std::vector<Place> places;
    unsigned rank = 0;            ///< Of the layer: a higher one replaces all values.
    std::unique_ptr<Slot> lower;  ///< What was replaced; it stands before the first argument.

    bool isEmpty() const { return places.empty(); }
    void clear();
};

/// What was found for the options of one parser: the outermost one, or a chosen command.
struct Level {
    Table* table = nullptr;
    std::vector<std::unique_ptr<Slot>> slots;  ///< One for each record; null if nothing was given.

    Slot* slot(unsigned index) const { return index < slots.size() ? slots[index].get() : nullptr; }
    /// Whether it was given and is not switched off.
    bool isGiven(unsigned index) const;
};

class ResultData {
public:
    explicit ResultData(Table& outermost);
    ResultData(const ResultData&) = delete;
    ResultData& operator=(const ResultData&) = delete;
    ~ResultData();

    const Level* level(AnyKey key) const;
    Level& level(const Table& table);
    Origin origin(const Place& place) const;
    unsigned addSource(Origin::Layer layer, std::string name);

    std::vector<Level> levels;    ///< The outermost parser's, then those of the chosen commands.
    std::vector<Source> sources;  ///< The first is the command line.
    std::vector<std::string> arguments;
    const Parser* command = nullptr;

private:
    Table& root;
};

}  // namespace vorn_3_1::host::detail

#endif
