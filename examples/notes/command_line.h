// The tool's command line: what it takes, and the keys to read it with. The tool and its tests share it.
#ifndef NOTES_COMMAND_LINE_H
#define NOTES_COMMAND_LINE_H

#include <filesystem>
#include <string>
#include <vector>

#include "vorn/host.h"
#include "vorn/host/path.h"

namespace notes {

namespace host = vorn::host;

enum class Order { id, text };

/// The words for the notes that follow it, up to the next --label.
using Labels = std::vector<std::string>;

struct Add {
    explicit Add(host::Parser& outer);

    host::Parser& parser;
    host::Key<Labels> labels;
    host::Key<std::vector<std::string>> texts;
};

struct List {
    explicit List(host::Parser& outer);

    host::Parser& parser;
    host::Key<Labels> only;
    host::Key<Order> order;
    host::Key<int> width;
};

struct Remove {
    explicit Remove(host::Parser& outer);

    host::Parser& parser;
    host::Key<bool> force;
    host::Key<std::vector<int>> ids;
};

struct CommandLine {
    CommandLine();

    host::Parser parser;
    host::Key<std::filesystem::path> store;
    host::Key<bool> showsSettings;
    Add add;
    List list;
    Remove remove;
};

/// A note's text with the labels that stand in front of it.
struct Labelled {
    Labels labels;
    std::string text;
};
std::vector<Labelled> notesToAdd(const Add& add, const host::Result& result);

}  // namespace notes

#endif
