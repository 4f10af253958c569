#include "store.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace notes {

namespace {

// 3<tab>home,urgent<tab>Buy milk
Note noteIn(const std::string& line) {
    std::istringstream fields(line);
    Note note;
    std::string labels;
    fields >> note.id;
    fields.ignore();
    std::getline(fields, labels, '\t');
    std::getline(fields, note.text);
    std::istringstream each(labels);
    for (std::string label; std::getline(each, label, ',');)
        note.labels.push_back(label);
    return note;
}

}  // namespace

std::vector<Note> readNotes(const std::filesystem::path& file) {
    std::vector<Note> all;
    std::ifstream lines(file);
    if (!lines && std::filesystem::exists(file)) throw std::runtime_error("cannot read " + file.string());
    for (std::string line; std::getline(lines, line);)
        all.push_back(noteIn(line));
    return all;
}

void writeNotes(const std::filesystem::path& file, const std::vector<Note>& all) {
    std::ofstream lines(file);
    for (const Note& note : all) {
        lines << note.id << '\t';
        for (const std::string& label : note.labels)
            lines << label << (&label == &note.labels.back() ? "" : ",");
        lines << '\t' << note.text << '\n';
    }
    if (!lines.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace notes
