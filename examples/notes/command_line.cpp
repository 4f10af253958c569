#include "command_line.h"

#include <cstdlib>
#include <set>

#include "store.h"

namespace notes {

namespace {

// What shells offer. They ask before anything is parsed, so that settings say nothing yet.
std::vector<Note> notesAtHand() {
    const char* store = std::getenv("NOTES_STORE");
    return readNotes(store != nullptr && *store != '\0' ? store : "notes.txt");
}

std::vector<std::string> labelsInUse(std::string_view) {
    std::set<std::string> labels;
    for (const Note& note : notesAtHand())
        labels.insert(note.labels.begin(), note.labels.end());
    return {labels.begin(), labels.end()};
}

std::vector<std::string> idsInUse(std::string_view) {
    std::vector<std::string> ids;
    for (const Note& note : notesAtHand())
        ids.push_back(std::to_string(note.id));
    return ids;
}

}  // namespace

Add::Add(host::Parser& outer)
    : parser(outer.command("add", "Adds notes.")),
      labels(parser.add<std::string>("label,l", "Words for the notes that follow, up to the next --label.")
                 .completes(labelsInUse)
                 .list(',')
                 .key()),
      texts(parser.addPositional<std::string>("text", "What a note says.").atLeast(1).key()) {}

List::List(host::Parser& outer)
    : parser(outer.command("list,show", "Lists notes.")),
      only(parser.add<std::string>("only", "Notes with one of these labels only.")
               .metavar("LABEL")
               .completes(labelsInUse)
               .list(',')
               .key()),
      order(parser.add<Order>("sort", "What comes first.")
                .named({{"id", Order::id}, {"text", Order::text}})
                .defaultTo(Order::id)
                .key()),
      width(parser.add<int>("width", "Cut lines at this width.")
                .range(20, 200)
                .defaultTo(72)
                .environment("NOTES_WIDTH")
                .key()) {}

Remove::Remove(host::Parser& outer)
    : parser(outer.command("remove,rm", "Removes notes.")),
      force(parser.addFlag("force,f", "Do not complain about notes that are not there.")
                .onlyOnCommandLine()
                .key()),
      ids(parser.addPositional<int>("id", "Which notes.").completes(idsInUse).atLeast(1).key()) {}

CommandLine::CommandLine()
    : parser("notes", "Keeps notes in a text file."),
      store(parser.add<std::filesystem::path>("store", "Where the notes are.")
                .metavar("FILE")
                .defaultTo("notes.txt")
                .environment("NOTES_STORE")
                .global()
                .key()),
      showsSettings(parser.addFlag("show-settings", "Show what is in force, and where it comes from.")
                        .onlyOnCommandLine()
                        .global()
                        .key()),
      add(parser),
      list(parser),
      remove(parser) {
    parser.version("1.0");
}

std::vector<Labelled> notesToAdd(const Add& add, const host::Result& result) {
    std::vector<Labelled> all;
    for (const host::Given<std::string>& text : result.given(add.texts)) {
        Labelled note = {{}, text.value};
        // All words of one --label have one position; those of the last one in front of the text count.
        const auto labels = result.given(add.labels, host::before(text.position));
        for (const host::Given<std::string>& label : labels) {
            if (label.position == labels.back().position) note.labels.push_back(label.value);
        }
        all.push_back(note);
    }
    return all;
}

}  // namespace notes
