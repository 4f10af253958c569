#include "line_counter.h"

#include <fstream>
#include <string>

namespace srcstat {

namespace {

const Language languages[] = {
    {"cpp", " .c .cc .cpp .h .hpp ", "//", "/*", "*/"},
    {"python", " .py ", "#", "", ""},
    {"shell", " .sh ", "#", "", ""},
    {"cmake", " .cmake CMakeLists.txt ", "#", "", ""},
};

bool hasEnding(const Language& language, const std::string& ending) {
    return !ending.empty() && language.endings.find(" " + ending + " ") != std::string_view::npos;
}

bool isShellScript(const std::filesystem::path& file) {
    std::string line;
    std::ifstream text(file);
    return std::getline(text, line) && line.rfind("#!", 0) == 0 && line.find("sh") != std::string::npos;
}

std::string_view trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view() : line.substr(first);
}

bool startsWith(std::string_view text, std::string_view start) {
    return !start.empty() && text.substr(0, start.size()) == start;
}

}  // namespace

LineCounts& LineCounts::operator+=(const LineCounts& other) {
    files += other.files;
    code += other.code;
    comments += other.comments;
    blanks += other.blanks;
    return *this;
}

const Language* languageOf(const std::filesystem::path& file) {
    const bool isWholeName = file.filename() == "CMakeLists.txt";
    const std::string ending = isWholeName ? file.filename().string() : file.extension().string();
    for (const Language& language : languages) {
        if (hasEnding(language, ending)) return &language;
        if (ending.empty() && language.name == "shell" && isShellScript(file)) return &language;
    }
    return nullptr;
}

LineCounts countLines(std::istream& text, const Language& language) {
    LineCounts counts;
    counts.files = 1;
    bool inBlock = false;
    for (std::string line; std::getline(text, line);) {
        std::string_view rest = trimmed(line);
        if (rest.empty()) {
            ++counts.blanks;
            continue;
        }
        const bool opens = !inBlock && startsWith(rest, language.blockBegin);
        if (!inBlock && !opens) {
            ++(startsWith(rest, language.lineComment) ? counts.comments : counts.code);
            continue;
        }
        ++counts.comments;
        if (opens) rest.remove_prefix(language.blockBegin.size());
        inBlock = rest.find(language.blockEnd) == std::string_view::npos;
    }
    return counts;
}

}  // namespace srcstat
