// Keeps notes: a tool with commands, settings, and an option whose meaning depends on where it stands.
#include <algorithm>
#include <cstdio>
#include <exception>

#include "command_line.h"
#include "store.h"

namespace {

using notes::Note;

int addNotes(const notes::CommandLine& line, const notes::host::Result& result) {
    std::vector<Note> all = notes::readNotes(result[line.store]);
    int id = 0;
    for (const Note& note : all)
        id = std::max(id, note.id);
    for (const notes::Labelled& added : notes::notesToAdd(line.add, result))
        all.push_back({++id, added.labels, added.text});
    notes::writeNotes(result[line.store], all);
    return 0;
}

bool isWanted(const Note& note, const notes::Labels& only) {
    return only.empty() || std::any_of(only.begin(), only.end(), [&note](const std::string& label) {
               return std::find(note.labels.begin(), note.labels.end(), label) != note.labels.end();
           });
}

int listNotes(const notes::CommandLine& line, const notes::host::Result& result) {
    std::vector<Note> all = notes::readNotes(result[line.store]);
    if (result[line.list.order] == notes::Order::text) {
        std::sort(all.begin(), all.end(),
                  [](const Note& left, const Note& right) { return left.text < right.text; });
    }
    for (const Note& note : all) {
        if (!isWanted(note, result[line.list.only])) continue;
        std::string shown = std::to_string(note.id) + "  " + note.text;
        for (const std::string& label : note.labels)
            shown += "  #" + label;
        std::printf("%.*s\n", result[line.list.width], shown.c_str());
    }
    return 0;
}

int removeNotes(const notes::CommandLine& line, const notes::host::Result& result) {
    std::vector<Note> all = notes::readNotes(result[line.store]);
    int code = 0;
    for (const int id : result[line.remove.ids]) {
        const auto end =
            std::remove_if(all.begin(), all.end(), [id](const Note& note) { return note.id == id; });
        if (end == all.end() && !result[line.remove.force]) {
            std::fprintf(stderr, "notes: there is no note %d\n", id);
            code = 1;
        }
        all.erase(end, all.end());
    }
    notes::writeNotes(result[line.store], all);
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    notes::CommandLine line;
    // Here, so that tests read no file. Each command has settings of its own.
    line.parser.settings("notes.conf", notes::host::Missing::allowed);
    line.list.parser.settings("notes-list.conf", notes::host::Missing::allowed);
    const notes::host::Result result = line.parser.parseOrExit(argc, argv);
    try {
        if (result[line.showsSettings]) {
            const std::string settings = line.parser.effective(result) + result.command()->effective(result);
            return std::fputs(settings.c_str(), stdout) < 0 ? 1 : 0;
        }
        if (result.command() == &line.add.parser) return addNotes(line, result);
        if (result.command() == &line.list.parser) return listNotes(line, result);
        return removeNotes(line, result);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "notes: %s\n", error.what());
        return 1;
    }
}
