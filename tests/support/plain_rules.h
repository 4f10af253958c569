// The library's rules a second time, written for plainness and not for speed; what the fuzz targets and tests
// compare with.
#ifndef VORN_TESTS_SUPPORT_PLAIN_RULES_H
#define VORN_TESTS_SUPPORT_PLAIN_RULES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorn_tests {

using Texts = std::vector<std::string>;

/// Ends the process when a rule does not hold; the fuzzer keeps the input.
inline void require(bool holds, const char* rule, const std::string& detail = "") {
    if (holds) return;
    std::fprintf(stderr, "broken rule: %s\n%s\n", rule, detail.c_str());
    std::abort();
}

/// Every text over the alphabet up to a length, shorter ones first.
inline Texts allTexts(const std::string& alphabet, std::size_t longest) {
    Texts texts{""};
    for (std::size_t i = 0; texts[i].size() < longest; ++i) {
        for (const char character : alphabet)
            texts.push_back(texts[i] + character);
    }
    return texts;
}

/// Takes the piece up to the separator off the text.
inline std::string cutAt(char separator, std::string& text) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string piece = text.substr(0, end);
    text.erase(0, end + 1);
    return piece;
}

inline Texts split(const std::string& text, char separator) {
    Texts pieces;
    std::size_t start = 0;
    std::size_t cursor = 0;
    for (; cursor < text.size(); ++cursor) {
        if (text[cursor] != separator) continue;
        pieces.push_back(text.substr(start, cursor - start));
        start = ++cursor;
    }
    const std::string terminated(text.c_str(), text.size() + 1);
    if (start != cursor) pieces.push_back(terminated.substr(start, cursor - start));
    return pieces;
}

inline Texts wordsOf(const std::string& name) {
    Texts words(1);
    for (const char character : name) {
        character == '-' ? static_cast<void>(words.emplace_back()) : words.back().push_back(character);
    }
    return words;
}

/// The names, among all that could be typed, that the typed name stands for equally well.
inline Texts bestMatches(const std::string& typedName, const Texts& candidates) {
    const Texts typed = wordsOf(typedName);
    Texts best;
    int bestScore = 0;
    for (const std::string& candidate : candidates) {
        const Texts words = wordsOf(candidate);
        if (words.size() != typed.size()) continue;
        int score = 0;
        for (std::size_t i = 0; i < typed.size() && score >= 0; ++i) {
            if (words[i].compare(0, typed[i].size(), typed[i]) != 0) {
                score = -1;
            } else {
                score += words[i] == typed[i] ? 2 : 1;
            }
        }
        if (score > bestScore) best.clear();
        bestScore = std::max(score, bestScore);
        if (score > 0 && score == bestScore) best.push_back(candidate);
    }
    return best;
}

/// What is said of a name that stands for several equally well.
inline std::string tieError(const std::string& typed, const std::string& argument, const Texts& best) {
    std::string list;
    for (const std::string& name : best)
        list += (list.empty() ? "'" : ", '") + name + "'";
    return "Ambiguous option '" + typed + "' in argument: '" + argument + "', could be: " + list;
}

/// Of a locale whose numbers look like 1.23.45,6.
struct CommaPunctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\2"; }
};

/// The number that a stream of the global locale reads, if it reads any.
template <class Number>
std::optional<Number> readByStream(const std::string& text, bool isHexadecimal) {
    std::istringstream stream(text);
    if (isHexadecimal) stream >> std::hex;
    Number number{};
    return (stream >> number).fail() ? std::nullopt : std::optional(number);
}

// "0x1F" or "1Fh".
inline bool isMarkedHexadecimal(const std::string& text) {
    const auto hasOnlyDigits = [&text](std::size_t from, std::size_t count) {
        return text.substr(from, count).find_first_not_of("1234567890ABCDEFabcdef") == std::string::npos;
    };
    const std::string front = text.substr(0, 2);
    if (front == "0x" || front == "0X") return hasOnlyDigits(2, text.size());
    return (text.ends_with('h') || text.ends_with('H')) && hasOnlyDigits(0, text.size() - 1);
}

template <class Number>
std::string writtenByStream(Number number) {
    std::ostringstream stream;
    stream << number;
    return stream.str();
}

/// BasicParser::paragraphString, one decision per line.
inline std::string paragraph(std::string text, const std::string& prefix, std::uint32_t indent,
                             std::uint32_t width) {
    std::string out;
    std::string line = prefix;
    while (!text.empty()) {
        while (!text.empty() && (text[0] == ' ' || text[0] == '\n'))
            text.erase(0, 1);
        std::uint32_t room = width - 1;
        if (line.size() < indent) {
            line.append(indent - line.size(), ' ');
        } else {
            room = width - 2 - (static_cast<std::uint32_t>(line.size()) - indent);
            line += ' ';
        }
        const std::size_t n = std::min<std::size_t>(room, text.find('\n'));
        std::string chunk = text.substr(0, n);
        if (text.size() > chunk.size() && text[n] != ' ' && text.at(n - 1) != ' ' && text[n] != '\n') {
            chunk = text.substr(0, text.rfind(' ', n));
        }
        if (chunk.size() > room) chunk.resize(room);
        text.erase(0, chunk.size());
        out += line + chunk + "\n";
        line.clear();
    }
    return out;
}

/// What a way of wrapping makes of a text.
template <class Wrap>
std::string outcomeOf(Wrap wrap, const std::string& text, const std::string& prefix, unsigned indent,
                      unsigned width) {
    try {
        return wrap(text, prefix, indent, width);
    } catch (const std::out_of_range&) {
        return "(no room)";
    }
}

}  // namespace vorn_tests

#endif
