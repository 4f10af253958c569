// From a text to lines of a given width, in three steps:
//
//     harmless    "Make\timages smaller"              "Make images smaller": nothing a terminal obeys
//     runsOf      "Make" "images" "smaller"           what does not break as long as it fits
//     fill        Make / images / smaller             at 10 columns: as many runs in a line as there is room for
//
// A run that is wider than a line is cut between two clusters, never within one: a letter stays with its accents.
#include "terminal_text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "character_columns.h"
#include "shown_text.h"

namespace vorn_3_1::host::detail {

namespace {

constexpr char32_t joiner = 0x200D;
constexpr char32_t softHyphen = 0xAD;
constexpr char32_t lineSeparator = 0x2028;
constexpr char32_t paragraphSeparator = 0x2029;

/// Marks of Arabic, Hebrew and Indian texts that join, part or direct the letters beside them.
bool joinsOrParts(char32_t code) { return code >= 0x200C && code <= 0x200F; }

bool isBetween(char32_t code, char32_t first, char32_t last) { return code >= first && code <= last; }

/// What a person takes for one character: a letter with its marks, a flag of two letters, a joined picture.
struct Cluster {
    std::size_t size = 0;  ///< In bytes.
    unsigned columns = 0;
    char32_t base = 0;
};

bool belongsTo(const Cluster& cluster, char32_t last, char32_t next, unsigned columns) {
    const auto isFlagLetter = [](char32_t code) { return isBetween(code, 0x1F1E6, 0x1F1FF); };
    const bool isSkin = isBetween(next, 0x1F3FB, 0x1F3FF);
    const bool isFlag = isFlagLetter(cluster.base) && isFlagLetter(next) && last == cluster.base &&
                        cluster.size == 4;  // only two of them make one
    return columns == 0 || last == joiner || isSkin || isFlag;
}

Cluster firstCluster(std::string_view text) {
    Cluster cluster;
    char32_t last = 0;
    while (cluster.size < text.size()) {
        const Character next = firstCharacter(text.substr(cluster.size));
        const unsigned columns = columnsOf(next.code);
        if (cluster.size > 0 && !belongsTo(cluster, last, next.code, columns)) break;
        if (cluster.size == 0) cluster.base = next.code;
        cluster.size += next.length;
        cluster.columns += columns;
        last = next.code;
    }
    return cluster;
}

/// Cuts off what fits, one character at least.
std::string_view cutFront(std::string_view& text, unsigned columns) {
    std::size_t size = 0;
    for (unsigned used = 0; size < text.size();) {
        const Cluster next = firstCluster(text.substr(size));
        used += next.columns;
        if (size > 0 && used > columns) break;
        size += next.size;
    }
    const std::string_view front = text.substr(0, size);
    text.remove_prefix(size);
    return front;
}

template <std::size_t size>
bool isAmong(const char32_t (&codes)[size], char32_t code) {
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// What never begins a line, and what never ends one, beside a wide character.
bool closes(char32_t code) {
    static constexpr char32_t closing[] = {
        ')',    ']',    '}',    ',',    '.',    ';',    ':',    '!',    '?',    '\'',   '"',    '%',
        0x2019, 0x201D, 0x2026, 0x3001, 0x3002, 0x3005, 0x3009, 0x300B, 0x300D, 0x300F, 0x3011, 0x3015,
        0x30FC, 0xFF01, 0xFF05, 0xFF09, 0xFF0C, 0xFF0E, 0xFF1A, 0xFF1B, 0xFF1F, 0xFF3D, 0xFF5D};
    return isAmong(closing, code);
}
bool opens(char32_t code) {
    static constexpr char32_t opening[] = {'(',    '[',    '{',    '\'',   '"',    0x2018, 0x201C, 0x3008,
                                           0x300A, 0x300C, 0x300E, 0x3010, 0x3014, 0xFF08, 0xFF3B, 0xFF5B};
    return isAmong(opening, code);
}

bool mayBreak(const Cluster& left, const Cluster& right) {
    const bool isBesideWide = columnsOf(left.base) == 2 || columnsOf(right.base) == 2;
    return isBesideWide && !opens(left.base) && !closes(right.base);
}

std::vector<std::string> fill(const std::vector<Run>& runs, unsigned columns, unsigned indent) {
    std::vector<std::string> lines(1);
    unsigned begin = 0;
    unsigned used = 0;
    const auto breakLine = [&] {
        lines.emplace_back(indent, ' ');
        begin = used = indent;
    };
    for (Run run : runs) {
        const unsigned width = columnsOf(run.text);
        const unsigned gap = run.followsBlank && used > begin ? 1 : 0;
        if (used + gap + width <= columns) {
            lines.back().append(gap, ' ').append(run.text);
            used += gap + width;
            continue;
        }
        if (used > begin) breakLine();
        while (!run.text.empty()) {
            const std::string_view front = cutFront(run.text, columns - begin);
            lines.back().append(front);
            used += columnsOf(front);
            if (!run.text.empty()) breakLine();
        }
    }
    for (std::string& line : lines)
        line.erase(line.find_last_not_of(' ') + 1);
    return lines;
}

}  // namespace

std::vector<Run> runsOf(std::string_view line) {
    std::vector<Run> runs;
    bool followsBlank = false;
    while (!line.empty()) {
        if (line.front() == ' ') {
            followsBlank = true;
            line.remove_prefix(1);
            continue;
        }
        std::size_t size = 0;
        for (Cluster previous; size < line.size() && line[size] != ' ';) {
            const Cluster next = firstCluster(line.substr(size));
            if (size > 0 && mayBreak(previous, next)) break;
            size += next.size;
            previous = next;
        }
        runs.push_back({line.substr(0, size), followsBlank});
        line.remove_prefix(size);
        followsBlank = false;
    }
    return runs;
}

std::string harmless(std::string_view text) {
    std::string safe;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        const std::string_view bytes = text.substr(0, character.length);
        text.remove_prefix(character.length);
        const char32_t code = character.isCharacter ? character.code : 0x80;
        const bool isWindowsBreak = code == '\r' && text.substr(0, 1) == "\n";
        if (code == softHyphen || isWindowsBreak) continue;
        if (code == '\t') {
            safe += ' ';
        } else if (code == '\n' || code == lineSeparator || code == paragraphSeparator) {
            safe += '\n';
        } else if (isControl(code) && !joinsOrParts(code)) {
            safe += escaped(bytes);
        } else {
            safe += bytes;
        }
    }
    return safe;
}

std::string oneLine(std::string_view text) {
    std::string line;
    for (const char character : harmless(text)) {
        const bool isBlank = character == ' ' || character == '\n';
        if (isBlank && (line.empty() || line.back() == ' ')) continue;
        line += isBlank ? ' ' : character;
    }
    if (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
}

unsigned columnsOf(std::string_view text) {
    unsigned columns = 0;
    while (!text.empty()) {
        const Character next = firstCharacter(text);
        columns += columnsOf(next.code);
        text.remove_prefix(next.length);
    }
    return columns;
}

std::vector<std::string> wrapped(std::string_view text, unsigned columns) {
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
        const unsigned indent = std::min(static_cast<unsigned>(blanks), columns / 2);
        for (const std::string& part : fill(runsOf(line), columns - indent, 0)) {
            lines.push_back(part.empty() ? part : std::string(indent, ' ') + part);
        }
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string> filled(const std::vector<std::string>& pieces, unsigned columns, unsigned indent) {
    std::vector<Run> runs;
    for (const std::string& piece : pieces)
        runs.push_back({piece, true});
    return fill(runs, columns, indent);
}

}  // namespace vorn_3_1::host::detail
