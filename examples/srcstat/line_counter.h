// Telling languages apart, and counting the lines of a file.
#ifndef SRCSTAT_LINE_COUNTER_H
#define SRCSTAT_LINE_COUNTER_H

#include <filesystem>
#include <istream>
#include <string_view>

namespace srcstat {

struct Language {
    std::string_view name;
    std::string_view endings;  ///< Each with its dot, or a whole file name; blanks around each.
    std::string_view lineComment;
    std::string_view blockBegin;  ///< Empty when there are no block comments.
    std::string_view blockEnd;
};

struct LineCounts {
    long files = 0;
    long code = 0;
    long comments = 0;
    long blanks = 0;

    long lines() const { return code + comments + blanks; }
    LineCounts& operator+=(const LineCounts& other);
};

/// The language of a file by its name, or null. A script without an ending is known by its first line.
const Language* languageOf(const std::filesystem::path& file);

/// A line with code and a comment counts as code.
LineCounts countLines(std::istream& text, const Language& language);

}  // namespace srcstat

#endif
