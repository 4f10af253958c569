// The manual page is written in the macros of man(7), which every formatter reads. All that is no plain letter is
// written as an escape, so that no formatter has to guess an encoding, and an option can be copied from the page:
//
//     -q, --quality N   ->   \fB\-q\fR, \fB\-\-quality\fR \fIN\fR
#include "manual.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "help.h"
#include "process_environment.h"
#include "shown_text.h"
#include "terminal_text.h"

namespace vorn_3_1::host::detail {

namespace {

/// Formatters warn of longer lines than 80.
constexpr std::size_t longestLine = 76;

/// A longer one may be broken at each of so many characters.
constexpr std::size_t longestWord = 30;

/// One character as roff wants it.
std::string roff(Character character, std::string_view bytes) {
    switch (character.code) {
        case '\\':
            return "\\(rs";
        case '-':
            return "\\-";
        case '\'':
            return "\\(aq";
        case '`':
            return "\\(ga";
        case '^':
            return "\\(ha";
        case '~':
            return "\\(ti";
        case '"':
            return "\\(dq";
        default:
            break;
    }
    if (character.code < 0x80) return std::string(bytes);
    const bool isJoinerOrMark = character.code >= 0x200C && character.code <= 0x200F;
    if (isJoinerOrMark) return {};  // formatters have no glyph for it, and complain
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, static_cast<unsigned>(character.code), 16);
    const std::string number = inCapitals({digits, static_cast<std::size_t>(end.ptr - digits)});
    return "\\[u" + std::string(number.size() < 4 ? 4 - number.size() : 0, '0') + number + "]";
}

/// What no line break may cut: a character, or a change of letters.
using Atoms = std::vector<std::string>;

void append(Atoms& atoms, std::string_view text) {
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        atoms.push_back(roff(character, text.substr(0, character.length)));
        text.remove_prefix(character.length);
    }
}

std::string inRoff(std::string_view text) {
    Atoms atoms;
    append(atoms, oneLine(text));
    return listed(atoms, "");
}

/// As an argument of a macro.
std::string argument(std::string_view text) { return "\"" + inRoff(text) + "\""; }

/// Formatters read dates without escapes alone.
std::string dateArgument(std::string_view date) {
    const bool isPlain = date.find_first_not_of("0123456789-") == std::string_view::npos;
    return isPlain ? joined({"\"", date, "\""}) : argument(date);
}

bool isWordCharacter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 0x80 || byte == '_' || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= 'a' && byte <= 'z');
}

/// The length of "--quality" or "--[no-]quiet" at the beginning of a text, or 0.
std::size_t optionLength(std::string_view text) {
    constexpr std::string_view no = "[no-]";
    if (text.substr(0, 1) != "-") return 0;
    std::size_t length = text.find_first_not_of('-');
    if (length == std::string_view::npos) return text.size();
    if (text.substr(length, no.size()) == no) length += no.size();
    return std::min(text.find_first_of(" ,=[]|}", length), text.size());
}

/// Options in bold letters, words that stand for something else in slanted ones.
Atoms marked(std::string_view text) {
    Atoms atoms;
    while (!text.empty()) {
        std::size_t length = optionLength(text);
        const char* look = "\\fB";
        if (length == 0) {
            look = "\\fI";
            while (length < text.size() && isWordCharacter(text[length]))
                ++length;
        }
        if (length != 0) atoms.emplace_back(look);
        append(atoms, text.substr(0, std::max<std::size_t>(length, 1)));
        if (length != 0) atoms.emplace_back("\\fR");
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return atoms;
}

class ManualWriter {
public:
    std::string text;

    void macro(std::string_view name, std::string_view arguments = {}) {
        endLine();
        text.append(".").append(name);
        if (!arguments.empty()) text.append(" ").append(arguments);
        text += '\n';
    }

    /// Text that is broken where roff may break it; its own line breaks stay.
    void paragraphs(std::string_view written) {
        const std::string safe = harmless(written);
        std::string_view rest = safe;
        bool isFirst = true;
        bool isBehindGap = false;
        while (true) {
            const std::size_t end = rest.find('\n');
            const std::string_view source = rest.substr(0, end);
            const std::size_t blanks = source.find_first_not_of(' ');
            if (blanks == std::string_view::npos) {
                isBehindGap = !isFirst;
            } else {
                if (!isFirst) macro(isBehindGap ? "sp" : "br");
                for (std::size_t i = 0; i < blanks; ++i)
                    line += "\\ ";
                fill(source);
                isFirst = isBehindGap = false;
            }
            if (end == std::string_view::npos) break;
            rest.remove_prefix(end + 1);
        }
        endLine();
    }

    /// Adds a word that is not broken as long as it fits in a line.
    void word(const Atoms& atoms, bool followsBlank = true) {
        if (atoms.empty()) return;
        std::size_t size = 0;
        for (const std::string& atom : atoms)
            size += atom.size();
        const bool isBehindText = !line.empty() && line.back() != ' ';
        if (line.size() + size + 1 > longestLine && isBehindText) {
            followsBlank ? endLine() : continueLine();
        } else if (isBehindText) {
            line += followsBlank ? " " : "\\:";
        }
        for (const std::string& atom : atoms) {
            if (line.size() + atom.size() > longestLine) continueLine();
            if (line.empty() && atom == ".") line += "\\&";
            line += atom;
        }
    }

    void endLine() {
        if (!line.empty()) text.append(line).append("\n");
        line.clear();
    }

private:
    void fill(std::string_view source) {
        bool isFirst = true;
        for (const Run& run : runsOf(source)) {
            Atoms atoms;
            append(atoms, run.text);
            for (std::size_t at = longestWord; at < atoms.size(); at += longestWord)
                atoms[at].insert(0, "\\:");
            word(atoms, run.followsBlank || isFirst);
            isFirst = false;
        }
    }

    /// Without a blank between this line and the next, but a place to break.
    void continueLine() {
        line += "\\:\\c";
        endLine();
    }

    std::string line;
};

/// "YYYY-MM-DD"; whoever builds the same twice sets SOURCE_DATE_EPOCH.
std::string today() {
    long long seconds = 0;
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (epoch == nullptr || !Type<long long>::read(epoch, seconds).empty()) seconds = std::time(nullptr);
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts = {};
    char date[32];
    // A year of too many digits, or a time that 32 bits do not hold.
    if (time != seconds || gmtime_r(&time, &parts) == nullptr) return "1970-01-01";
    return {date, std::strftime(date, sizeof date, "%Y-%m-%d", &parts)};
}

bool saysAnything(std::string_view text) { return !oneLine(text).empty(); }

std::string withoutPoint(std::string_view text) {
    if (!text.empty() && text.back() == '.') text.remove_suffix(1);
    return std::string(text);
}

class Manual {
public:
    explicit Manual(const Table& tool) : root(tool) {}

    std::string write(std::string_view date, std::string_view section) {
        writeHead(date, section);
        const HelpPage page = pageOf(root);
        writer.macro("SH", "SYNOPSIS");
        writeUsage(page);
        if (saysAnything(page.description)) {
            writer.macro("SH", "DESCRIPTION");
            writer.paragraphs(page.description);
        }
        writeArguments(page);
        writeOptions(page);
        if (!root.commands.empty()) writer.macro("SH", "COMMANDS");
        writeCommands(root);
        writeEnvironment();
        writeFiles();
        writer.macro("SH", "EXIT STATUS");
        writeEntry("2", "The command line is wrong.");
        if (saysAnything(page.epilogue)) {
            writer.macro("SH", "NOTES");
            writer.paragraphs(page.epilogue);
        }
        return std::move(writer.text);
    }

private:
    HelpPage pageOf(const Table& table) const {
        return helpPage(table, false, GivenEnvironment(noVariables));
    }

    void writeHead(std::string_view date, std::string_view section) {
        const std::string name = root.names;
        const std::string day = date.empty() ? today() : std::string(date);
        const std::string source = root.versionText.empty() ? name : name + " " + root.versionText;
        writer.macro("TH", joined({argument(inCapitals(name)), " ", argument(section), " ", dateArgument(day),
                                   " ", argument(source)}));
        writer.macro("SH", "NAME");
        const std::string about =
            withoutPoint(oneLine(root.description.substr(0, root.description.find('\n'))));
        Atoms atoms;
        append(atoms, oneLine(name));
        writer.word(atoms);
        writer.word({"\\-"});
        writer.paragraphs(about.empty() ? "a command" : about);
    }

    void writeUsage(const HelpPage& page) {
        writer.macro("B", argument(page.program));
        for (const std::string& piece : page.usage)
            writer.word(marked(oneLine(piece)));
        writer.endLine();
    }

    void writeTag(std::string_view label) {
        writer.macro("TP");
        writer.macro("B", "\"" + listed(marked(oneLine(label)), "") + "\"");
    }

    void writeEntry(std::string_view label, std::string_view description) {
        writer.macro("TP");
        writer.macro("B", argument(label));
        writer.paragraphs(oneLine(description));
    }

    void writeEntry(const HelpEntry& entry) {
        writeTag(listed(entry.forms, ", ") + entry.value);
        std::string about = entry.description;
        if (!entry.notes.empty()) {
            if (!about.empty()) about += ' ';
            about.append("(").append(oneLine(listed(entry.notes, "; "))).append(")");
        }
        writer.paragraphs(about);
    }

    void writeArguments(const HelpPage& page) {
        for (const HelpSection& section : page.sections) {
            if (section.kind != HelpSection::Kind::arguments) continue;
            writer.macro("SH", "ARGUMENTS");
            for (const HelpEntry& entry : section.entries)
                writeEntry(entry);
        }
    }

    void writeOptions(const HelpPage& page) {
        writer.macro("SH", "OPTIONS");
        writer.paragraphs(
            "The words of an option may be shortened as long as it is clear which one is meant.");
        if (root.readsResponseFiles) {
            writer.paragraphs("An argument @FILE stands for the arguments in that file, one a line.");
        }
        bool isFirst = true;
        for (const HelpSection& section : page.sections) {
            if (section.kind != HelpSection::Kind::options) continue;
            if (!isFirst || section.title != "Options") writer.macro("SS", argument(section.title));
            isFirst = false;
            for (const HelpEntry& entry : section.entries)
                writeEntry(entry);
        }
    }

    /// Each command with its own arguments and options; --help has been told already.
    void writeCommands(const Table& table) {
        for (const std::unique_ptr<Table>& command : table.commands) {
            const HelpPage page = pageOf(*command);
            writer.macro("SS", argument(command->path()));
            writeUsage(page);
            if (saysAnything(page.description)) {
                writer.macro("PP");
                writer.paragraphs(page.description);
            }
            for (const HelpSection& section : page.sections) {
                if (section.kind == HelpSection::Kind::arguments ||
                    section.kind == HelpSection::Kind::options)
                    writeSection(section);
            }
            if (saysAnything(page.epilogue)) {
                writer.macro("PP");
                writer.paragraphs(page.epilogue);
            }
            writeCommands(*command);
        }
    }

    void writeSection(const HelpSection& section) {
        for (const HelpEntry& entry : section.entries) {
            if (entry.forms.back() != "--help") writeEntry(entry);
        }
    }

    void writeEnvironment() {
        bool isFirst = true;
        forEachTable(root, [&](const Table& table) {
            for (unsigned i = 0; i < table.records.size(); ++i) {
                const OptionInfo info = infoOf(table, i, GivenEnvironment(noVariables));
                if (info.variable.empty() || info.isHidden || info.isDeprecated) continue;
                if (isFirst) writer.macro("SH", "ENVIRONMENT");
                isFirst = false;
                const std::string name = table.records[i].shownName();
                writeEntry(info.variable,
                           joined({"Gives ", name, " its value where the command line does not."}));
            }
        });
    }

    void writeFiles() {
        bool isFirst = true;
        forEachTable(root, [&](const Table& table) {
            for (const SettingsSource& settings : table.settings) {
                if (settings.isText) continue;
                if (isFirst) writer.macro("SH", "FILES");
                isFirst = false;
                writeEntry(settings.text,
                           "Options, one a line, that count where neither the environment nor the "
                           "command line has them.");
            }
        });
    }

    template <class Each>
    static void forEachTable(const Table& table, const Each& each) {
        each(table);
        for (const std::unique_ptr<Table>& command : table.commands)
            forEachTable(*command, each);
    }

    const Table& root;
    const std::vector<Variable> noVariables;
    ManualWriter writer;
};

void sealAll(Table& table) {
    table.seal();
    for (const std::unique_ptr<Table>& command : table.commands)
        sealAll(*command);
}

}  // namespace

std::string manualPage(const Table& root, std::string_view date, std::string_view section) {
    return Manual(root).write(date, section);
}

}  // namespace vorn_3_1::host::detail

namespace vorn_3_1::host {

std::string Parser::manual(Text date, Text section) const {
    detail::Table& root = table->root();
    detail::sealAll(root);
    return detail::manualPage(root, date, section);
}

}  // namespace vorn_3_1::host
