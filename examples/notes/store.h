// The notes themselves: a text file with one note a line.
#ifndef NOTES_STORE_H
#define NOTES_STORE_H

#include <filesystem>
#include <string>
#include <vector>

namespace notes {

struct Note {
    int id = 0;
    std::vector<std::string> labels;
    std::string text;
};

/// No file, no notes. Throws std::runtime_error if a file is there and cannot be read.
std::vector<Note> readNotes(const std::filesystem::path& file);

/// Throws std::runtime_error if the file cannot be written.
void writeNotes(const std::filesystem::path& file, const std::vector<Note>& all);

}  // namespace notes

#endif
