// Tools of every kind, each made from a number, and what holds for every tool and everything that it is given. The fuzz
// target looks for what breaks a rule; a test looks at a few thousand.
//
//     vorn_tests::AnyTool tool(7);
//     const std::string broken = tool.brokenRule({{"--tag=1"}, "--verbose\n", {{"TAG", "2"}}, 80, true});
#ifndef VORN_TESTS_SUPPORT_ANY_TOOL_H
#define VORN_TESTS_SUPPORT_ANY_TOOL_H

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/memory_file.h"
#include "vorn/host.h"
#include "vorn/host/byte_size.h"
#include "vorn/host/duration.h"
#include "vorn/host/help.h"

namespace vorn_tests {

namespace host = vorn_3_1::host;

using Texts = std::vector<std::string>;

inline std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    lines.push_back(text);
    return lines;
}

/// The columns of a line of Latin or Chinese letters; nothing for what is no UTF-8 or could be obeyed by a terminal.
inline int columnsOf(std::string_view line) {
    int columns = 0;
    for (std::size_t i = 0; i < line.size();) {
        const auto first = static_cast<unsigned char>(line[i]);
        const std::size_t length = first < 0x80   ? 1
                                   : first < 0xC2 ? 0
                                   : first < 0xE0 ? 2
                                   : first < 0xF0 ? 3
                                                  : 4;
        if (length == 0 || first < ' ' || first == 0x7F || i + length > line.size()) return -1;
        for (std::size_t k = 1; k < length; ++k) {
            if ((static_cast<unsigned char>(line[i + k]) & 0xC0) != 0x80) return -1;
        }
        const bool isMark = first == 0xCC;  // U+0300 to U+033F
        columns += isMark ? 0 : length >= 3 ? 2 : 1;
        i += length;
    }
    return columns;
}

/// Whether people can read a line of help on a terminal of so many columns.
inline bool fits(std::string_view line, unsigned columns) {
    const int width = columnsOf(line);
    return width >= 0 && width <= static_cast<int>(columns) && (line.empty() || line.back() != ' ');
}

/// What a tool is given.
struct Given {
    Texts arguments;
    std::string settings;
    std::vector<host::Variable> environment;
    unsigned columns = 80;
    bool isFull = true;  // also looks at what takes long: help, manual, what is in force
};

/// A tool whose declarations a number decides.
class AnyTool {
public:
    explicit AnyTool(unsigned seed) : state(seed * 2654435761U + 1) {
        if (below(3) == 0) parser.version("1.0");
        if (below(2) == 0) parser.joinedShort();
        if (below(4) == 0) parser.responseFiles();
        if (below(8) == 0) parser.ignoreUnknown(), ignoresUnknown = true;
        parser.settings(settings.path).epilogue(text());
        declareOptions(parser, {"output-dir,o", "output-file", "out", "verbose,v", "most", "n", "x-y-z,x"});
        if (below(4) == 0) {
            host::Parser& command = parser.command("copy,cp", text());
            declareOptions(command, {"deep,d", "quality,q", "y"});
            declarePositionals(command);
            declareOptions(parser.command("count-all", text()), {"deep", "long-name", "l"});
        } else {
            declarePositionals(parser);
        }
        parser.verify();
    }

    /// The name of a rule that does not hold, and what breaks it; "" if all hold.
    std::string brokenRule(const Given& given) {
        settings.write(given.settings);
        const host::Outcome outcome = parser.parse(given.arguments, given.environment);
        const std::string first = told(outcome);
        const std::string second = told(parser.parse(given.arguments, given.environment));
        if (first != second) return "what is parsed again gives the same\n" + first + "---\n" + second;
        for (const host::Error& error : outcome.errors()) {
            if (!isHarmless(error.text())) return "errors are harmless lines\n" + error.text();
        }
        std::string broken = brokenByPositions(outcome.result());
        if (broken.empty() && outcome) broken = brokenByLoss(outcome.result(), given);
        if (broken.empty() && given.isFull) broken = brokenByHelp(given);
        if (broken.empty() && given.isFull && outcome) broken = brokenByEffective(outcome.result());
        return broken;
    }

private:
    struct Shown {
        int position;
        host::Origin origin;
        std::string value;
    };
    struct Declared {
        std::string name;
        bool isWritten;  // into settings
        bool isText;     // a value is a piece of what was typed
        std::function<std::vector<Shown>(const host::Result&)> given;
        std::function<std::string(const host::Result&)> inForce;
    };
    using Names = std::vector<const char*>;

    unsigned below(unsigned limit) { return (state = state * 1664525U + 1013904223U) / 65536U % limit; }

    const char* text() {
        static const char* const texts[] = {
            "",
            "Short.",
            "A text that is longer than many a line, and is wrapped where the line ends.",
            "\033]0;title\a\r\n\b",
            "\xFF\xC3\xE4\xB8\xF0\x9F\x98 \xED\xA0\x80",
            "\xE5\x9B\xBE\xE5\x9B\xBE\xE5\x9B\xBE\xE5\x9B\xBE\xE5\x9B\xBE \xE2\x80\xAEtxt",
            "\xCC\xCC\xCC\xCC\xCC\xCC",
            "one-word-that-is-far-longer-than-any-column-can-be-and-has-to-be-cut-somewhere-in-the-middle"};
        return texts[below(2) == 0 ? 1 : below(std::size(texts))];
    }

    template <class Made>
    void remember(const std::string& name, Made made, bool isText, bool isWritten = false) {
        const auto key = made.key();
        using Value = typename decltype(key)::Element;
        const auto given = [key](const host::Result& result) {
            std::vector<Shown> shown;
            try {
                for (const host::Given<Value>& each : result.given(key))
                    shown.push_back({each.position, each.origin, host::Type<Value>::show(each.value)});
            } catch (const std::logic_error&) {
            }  // it belongs to a command that was not chosen
            return shown;
        };
        constexpr bool isSeveral = std::is_same_v<decltype(made.key()), host::Key<std::vector<Value>>>;
        const auto inForce = [key](const host::Result& result) -> std::string {
            try {
                std::vector<Value> values = result.values(key);
                if (!isSeveral && !values.empty()) values = {values.back()};
                std::string shown;
                for (const Value& value : values)
                    shown += "[" + host::Type<Value>::show(value) + "]";
                return shown;
            } catch (const std::logic_error&) {
                return "nothing";
            }
        };
        all.push_back({name, isWritten, isText, given, inForce});
    }

    /// How the option counts and where it may stand. What it reads is decided before.
    template <class Made>
    void shape(host::Parser& owner, const std::string& name, Made made, bool isText) {
        if (below(3) == 0) made.group(text());
        if (below(8) == 0) made.hidden();
        if (below(8) == 0) made.deprecated(text());
        if (below(2) == 0) made.environment(std::string(1, static_cast<char>('A' + all.size())));
        const bool isOnlyTyped = below(10) == 0;
        if (isOnlyTyped) made.onlyOnCommandLine();
        keys.push_back(made.key());
        remember(name, made, isText, !isOnlyTyped && &owner == &parser);
    }

    template <class T>
    void declareValue(host::Parser& owner, const std::string& name, const T& a, const T& b, const T& c) {
        const auto made = owner.add<T>(name, text()).metavar(text());
        const bool hasChoices = below(4) == 0;
        const unsigned kind = below(7);
        const bool hasImplicit = kind == 6;
        if (hasChoices) made.allow(a, b, c);
        if (below(6) == 0) {
            made.check([](const T& value) {
                return host::Type<T>::show(value) == "7" ? "7\nis \033[1m refused" : "";
            });
        }
        const bool isText = std::is_same_v<T, std::string> && !hasChoices && !hasImplicit;
        if (kind == 0) return shape(owner, name, made.list(below(2) == 0 ? ',' : ';'), isText);
        if (kind == 1) return shape(owner, name, made.repeated(), isText);
        if (kind == 2) return shape(owner, name, made.defaultTo(c), isText);
        if (kind == 3) return shape(owner, name, made.list(';').defaultTo({a, b}), isText);
        if (kind == 4) return remember(name, made.required(), isText, &owner == &parser);
        if (hasImplicit) made.implicit(b);
        shape(owner, name, made, isText);
    }

    void declareOption(host::Parser& owner, const std::string& name) {
        using Seconds = std::chrono::seconds;
        const unsigned kind = below(9);
        if (kind == 0)
            return shape(owner, name, owner.addSwitch(name, text()).defaultTo(below(2) == 0), false);
        if (kind == 1) return shape(owner, name, owner.addFlag(name, text()), false);
        if (kind == 2) return shape(owner, name, owner.addCount(name, text()), false);
        if (kind == 3) return declareValue<int>(owner, name, -5, 30, 300);
        if (kind == 4) return declareValue<double>(owner, name, -0.5, 1e300, 3);
        if (kind == 5) return declareValue<host::ByteSize>(owner, name, {4096}, {1000}, {70});
        if (kind == 6) return declareValue<Seconds>(owner, name, Seconds(90), Seconds(0), Seconds(-5));
        declareValue<std::string>(owner, name, "one", "once more", "=#");
    }

    void declareOptions(host::Parser& owner, const Names& names) {
        keys.clear();
        for (const char* name : names) {
            if (below(3) != 0) declareOption(owner, name);
        }
        if (keys.size() > 2 && below(3) == 0) owner.exclusive({keys[0], keys[1]});
        if (keys.size() > 3 && below(6) == 0) owner.oneOf({keys[2], keys[3]});
    }

    void declarePositionals(host::Parser& owner) {
        const unsigned kind = below(5);
        if (kind == 1) remember("number", owner.addPositional<int>("number", text()).optional(), false);
        if (kind == 2)
            remember("source", owner.addPositional<std::string>("source", text()).atLeast(1), true);
        if (kind == 2) remember("target", owner.addPositional<double>("target", text()), false);
        if (kind == 3) remember("rest", owner.rest("rest", text()), true);
        if (kind == 4) remember("file", owner.addPositional<std::string>("file", text()).atLeast(0), true);
    }

    static bool isHarmless(std::string_view line) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const auto byte = static_cast<unsigned char>(line[i]);
            const bool isHigh =
                byte == 0xC2 && i + 1 < line.size() && static_cast<unsigned char>(line[i + 1]) < 0xA0;
            if (byte < ' ' || byte == 0x7F || isHigh) return false;
        }
        return true;
    }

    std::string told(const host::Outcome& outcome) const {
        std::string lines;
        for (const host::Error& error : outcome.errors()) {
            lines += std::to_string(static_cast<int>(error.kind)) + " " + error.option + " " +
                     error.argument + " " + error.value + " " + error.reason + " " + error.text() + "\n";
            for (const std::string& candidate : error.candidates)
                lines += "  " + candidate + "\n";
        }
        for (const std::string& warning : outcome.warnings())
            lines += warning + "\n";
        lines += std::to_string(static_cast<int>(outcome.asked)) + "\n";
        for (const Declared& declared : all) {
            lines += declared.name + " " + declared.inForce(outcome.result());
            for (const Shown& shown : declared.given(outcome.result()))
                lines += " " + shown.value + " from " + shown.origin.text();
            lines += "\n";
        }
        for (const std::string& argument : outcome.result().arguments())
            lines += argument + "\n";
        return lines;
    }

    static bool isTyped(const Shown& shown) {
        return shown.origin.layer == host::Origin::Layer::commandLine && shown.origin.place.empty();
    }

    /// Positions rise along the command line, and all lower layers stand before it.
    std::string brokenByPositions(const host::Result& result) const {
        std::map<int, std::pair<int, int>> byLine;  // the lowest and the highest
        int before = 0;
        for (const Declared& declared : all) {
            int last = 0;
            for (const Shown& shown : declared.given(result)) {
                if (shown.position < last) return "given rises with the positions: " + declared.name;
                last = shown.position;
                if (shown.origin.layer != host::Origin::Layer::commandLine) before = std::max(before, last);
                if (!isTyped(shown)) continue;
                const auto entry = byLine.emplace(shown.origin.line, std::make_pair(last, last)).first;
                entry->second.first = std::min(entry->second.first, last);
                entry->second.second = std::max(entry->second.second, last);
            }
        }
        for (const auto& [line, positions] : byLine) {
            if (positions.first <= before) return "positions rise, argument " + std::to_string(line);
            before = positions.second;
        }
        return "";
    }

    /// Whether the argument behind an option may be its value.
    static bool canBeValue(const std::string& argument) {
        return argument.size() < 2 || argument[0] != '-' || argument[1] == '.' ||
               (argument[1] >= '0' && argument[1] <= '9');
    }

    /// Every argument that was accepted is found again.
    std::string brokenByLoss(const host::Result& result, const Given& given) const {
        const Texts& typed = given.arguments;
        std::set<std::size_t> found;
        for (const Declared& declared : all) {
            for (const Shown& shown : declared.given(result)) {
                if (!isTyped(shown)) continue;
                const auto number = static_cast<std::size_t>(shown.origin.line - 1);
                if (number >= typed.size()) return "arguments are numbered: " + shown.origin.text();
                const std::string next = number + 1 < typed.size() ? typed[number + 1] : "";
                if (declared.isText && (typed[number] + "\n" + next).find(shown.value) == std::string::npos)
                    return "a value is what was typed: " + declared.name + " " + shown.value;
                found.insert(number);
                const bool takesNext =
                    typed[number].substr(0, 1) == "-" && typed[number].find('=') == std::string::npos;
                if (takesNext && canBeValue(next)) found.insert(number + 1);
            }
        }
        const auto terminator =
            static_cast<std::size_t>(std::find(typed.begin(), typed.end(), "--") - typed.begin());
        std::size_t lost = 0;
        for (std::size_t i = 0; i < typed.size(); ++i) {
            const bool isFile = typed[i].substr(0, 1) == "@";
            if (found.count(i) == 0 && i != terminator && !isFile) ++lost;
        }
        const std::size_t kept = result.arguments().size() + (result.command() != nullptr ? 1 : 0);
        return lost <= kept || ignoresUnknown ? "" : "nothing is lost:\n" + std::to_string(lost);
    }

    std::string brokenByHelp(const Given& given) const {
        host::HelpStyle style;
        style.columns = given.columns;
        style.showsAll = given.columns % 2 == 0;
        style.environment = given.environment;
        const std::string help = parser.help(style);
        for (const std::string_view line : linesOf(help)) {
            if (!fits(line, std::max(given.columns, 2U))) return "help can be read\n" + help;
        }
        const std::string manual = parser.manual("2026-01-02");
        for (const std::string_view line : linesOf(manual)) {
            if (!isHarmless(line)) return "the manual page is harmless\n" + std::string(line);
        }
        return "";
    }

    /// What is in force reads back as settings.
    std::string brokenByEffective(const host::Result& result) {
        const std::string text = parser.effective(result);
        for (const std::string_view line : linesOf(text)) {
            if (line.substr(0, 1) == "#" && !isHarmless(line)) return "comments are harmless\n" + text;
        }
        if (text.find("has a value that no settings can hold") != std::string::npos) return "";
        settings.write(text);
        const host::Outcome again = parser.parse(result.command() != nullptr ? Texts{"count-all"} : Texts{});
        for (const host::Error& error : again.errors()) {
            const std::string said = error.text();
            const bool isMissing = said.compare(0, 7, "missing") == 0;
            if (!isMissing) return "what is in force is accepted: " + said + "\n" + text;
        }
        for (const Declared& declared : all) {
            const std::string value = declared.inForce(again.result());
            if (declared.isWritten && value != declared.inForce(result))
                return "what is in force reads back: " + declared.name + " " + value + "\n" + text;
        }
        return "";
    }

    unsigned state;
    MemoryFile settings;
    host::Parser parser{"tool", "Makes something."};
    bool ignoresUnknown = false;
    std::vector<Declared> all;
    std::vector<host::AnyKey> keys;  // of the options declared last that a rule may name
};

}  // namespace vorn_tests

#endif
