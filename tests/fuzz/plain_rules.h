// The library's rules a second time, written for plainness and not for speed; what the fuzz targets and tests
// compare with.
#ifndef VORN_TESTS_FUZZ_PLAIN_RULES_H
#define VORN_TESTS_FUZZ_PLAIN_RULES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
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
        if (character == '-') {
            words.emplace_back();
        } else {
            words.back() += character;
        }
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

}  // namespace vorn_tests

#endif
