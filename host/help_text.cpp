// The writer for terminals: two columns where there is room for them, one below the other where there is not.
//
//     -q, --quality N      How good they look. (1 to 100; default: 80)
//         --output-dir DIR Where they go.
#include <algorithm>

#include "help.h"
#include "shown_text.h"
#include "terminal_text.h"

namespace vorn_3_1::host::detail {

namespace {

constexpr unsigned leastForTwo = 40;  // narrower, a description gets lines of its own
constexpr unsigned shortColumns = 4;  // of "-q, "
constexpr std::string_view bold = "\033[1m";
constexpr std::string_view heading = "\033[1;4m";
constexpr std::string_view plain = "\033[0m";

/// Stands for a blank at which no line breaks; harmless text has no such character.
constexpr char keptBlank = '\1';

class TerminalWriter {
public:
    TerminalWriter(const HelpPage& shown, unsigned width, bool coloured)
        : page(shown), columns(std::max(width, 2U)), hasColours(coloured) {
        decideLayout();
    }

    std::string write() {
        writeUsage();
        writeParagraph(page.description);
        for (const HelpSection& section : page.sections)
            writeSection(section);
        writeParagraph(page.epilogue);
        return std::move(text);
    }

private:
    void decideLayout() {
        const auto begins = [](const HelpEntry& entry) {
            return entry.forms.front().size() == 2 && entry.forms.front().front() == '-';
        };
        for (const HelpSection& section : page.sections)
            hasShort = hasShort || std::any_of(section.entries.begin(), section.entries.end(), begins);
        indent = columns < leastForTwo ? columns / 20 : 2;
        if (columns < leastForTwo) {
            descriptionColumn = columns / 5;
            return;
        }
        const unsigned widest = columns * 3 / 8 - 2;
        unsigned found = 0;
        for (const HelpSection& section : page.sections) {
            for (const HelpEntry& entry : section.entries) {
                const unsigned width = columnsOf(labelOf(entry));
                if (width <= widest) found = std::max(found, width);
            }
        }
        descriptionColumn = indent + found + 2;
    }

    /// Long forms stand below each other.
    std::string labelOf(const HelpEntry& entry) const {
        const std::string label = oneLine(listed(entry.forms, ", ") + entry.value);
        const bool isAside = hasShort && columns >= leastForTwo && label.compare(0, 2, "--") == 0;
        return isAside ? std::string(shortColumns, ' ') + label : label;
    }

    void writeUsage() {
        std::vector<std::string> pieces = {"Usage:", oneLine(page.program)};
        for (const std::string& piece : page.usage)
            pieces.push_back(oneLine(piece));
        const std::size_t titleSize = pieces.front().size();
        const std::vector<std::string> lines = filled(pieces, columns, std::min(7U, columns / 4));
        const bool isWhole = lines.front().compare(0, titleSize, pieces.front()) == 0;
        for (const std::string& line : lines) {
            const std::size_t title = &line == &lines.front() && isWhole ? titleSize : 0;
            writeIn(heading, std::string_view(line).substr(0, title));
            text.append(line, title).append("\n");
        }
    }

    void writeParagraph(std::string_view paragraph) {
        if (paragraph.empty()) return;
        text += '\n';
        for (const std::string& line : wrapped(harmless(paragraph), columns))
            text.append(line).append("\n");
    }

    void writeSection(const HelpSection& section) {
        text += '\n';
        for (const std::string& line : wrapped(oneLine(section.title) + ":", columns)) {
            writeIn(heading, line);
            text += '\n';
        }
        for (const HelpEntry& entry : section.entries)
            writeEntry(entry);
    }

    void writeEntry(const HelpEntry& entry) {
        const std::string label = labelOf(entry);
        const std::string description = textOf(entry);
        if (indent + columnsOf(label) + 2 <= descriptionColumn && columns >= leastForTwo) {
            writeLabel(label);
            if (!description.empty()) text.append(descriptionColumn - indent - columnsOf(label), ' ');
            writeDescription(description, 0);
            return;
        }
        const std::size_t aside = label.find_first_not_of(' ');
        const auto room = static_cast<unsigned>(columns - indent - aside);
        bool isFirst = true;
        for (const std::string& line : wrapped(std::string_view(label).substr(aside), room)) {
            if (!isFirst) text += '\n';
            isFirst = false;
            writeLabel(std::string(aside, ' ') + line);
        }
        if (!description.empty()) text += '\n';
        writeDescription(description, descriptionColumn);
    }

    void writeLabel(const std::string& label) {
        const std::size_t aside = label.find_first_not_of(' ');
        text.append(indent + aside, ' ');
        writeIn(bold, std::string_view(label).substr(aside));
    }

    /// Lines in the second column, the first one behind `indentFirst` blanks.
    void writeDescription(std::string_view description, unsigned indentFirst) {
        unsigned blanks = indentFirst;
        for (std::string& line : wrapped(description, columns - descriptionColumn)) {
            std::replace(line.begin(), line.end(), keptBlank, ' ');
            if (!line.empty()) text.append(blanks, ' ').append(line);
            text += '\n';
            blanks = descriptionColumn;
        }
    }

    /// The description with its notes, of which short ones do not break.
    std::string textOf(const HelpEntry& entry) const {
        std::string all = harmless(entry.description);
        for (const std::string& each : entry.notes) {
            std::string note = (&each == &entry.notes.front() ? "(" : "") + oneLine(each) +
                               (&each == &entry.notes.back() ? ")" : ";");
            const bool isBrief = columnsOf(note) <= (columns - descriptionColumn) / 2;
            if (isBrief) std::replace(note.begin(), note.end(), ' ', keptBlank);
            if (!all.empty()) all += ' ';
            all += note;
        }
        return all;
    }

    void writeIn(std::string_view look, std::string_view part) {
        if (part.empty()) return;
        if (hasColours) text.append(look);
        text.append(part);
        if (hasColours) text.append(plain);
    }

    const HelpPage& page;
    unsigned columns;
    bool hasColours;
    bool hasShort = false;
    unsigned indent = 0;
    unsigned descriptionColumn = 0;
    std::string text;
};

}  // namespace

std::string terminalHelp(const HelpPage& page, unsigned columns, bool hasColours) {
    return TerminalWriter(page, columns, hasColours).write();
}

}  // namespace vorn_3_1::host::detail
