// Two measures of how near a name is, of which the better one counts: letters of the whole name, and letters word by
// word, where whole words of the name may be left out.
//
//     typed      name           as a whole     by words
//     outptu     output         1 swap         1 swap
//     output     output-dir     too far        0 wrong, 1 word left out
//     out-dri    output-dir     too far        1 swap: "out" is the beginning of "output"
//
// mistakes.cpp and value_reader.cpp ask once there is an error; nothing is compared before.
#include "suggestions.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "shown_text.h"
#include "text_parts.h"

namespace vorn_3_1::host::detail {

namespace {

constexpr std::size_t mostSuggestions = 3;

/// Longer ones are not typing mistakes; comparing them would take its time.
constexpr std::size_t longestTyped = 64;
constexpr std::size_t widest = longestTyped + 8;  // no name that is near is that long

/// How many letters may be wrong in a text of this length before a suggestion is far-fetched.
unsigned toleranceFor(std::size_t length) {
    if (length <= 2) return 0;
    if (length <= 5) return 1;
    return length <= 8 ? 2 : 3;
}

std::vector<std::string_view> wordsOf(std::string_view name) { return piecesOf<std::string_view>(name, '-'); }

/// How far the typed word is from the word, or from a beginning of it.
unsigned wordDistance(std::string_view typed, std::string_view word, unsigned most) {
    unsigned best = distance(typed, word, most);
    const std::size_t shortest = typed.size() > most ? typed.size() - most : 1;
    for (std::size_t length = shortest; length < word.size() && length <= typed.size() + most; ++length) {
        best = std::min(best, distance(typed, word.substr(0, length), most));
    }
    return best;
}

/// A name with what speaks against it.
struct NearText {
    const std::string* name;
    unsigned wrongLetters;
    std::size_t leftOut;  ///< Words.
};

/// Lets each typed word stand for one of the name's words, in their order, with the fewest wrong letters. A small table
/// over (typed words, own words), as distance() has one over letters.
unsigned alignWords(const std::vector<std::string_view>& typed, const std::vector<std::string_view>& own,
                    unsigned most) {
    const unsigned far = most + 1;
    std::vector<unsigned> best(own.size() + 1, 0);
    for (const std::string_view word : typed) {
        std::vector<unsigned> next(own.size() + 1, far);
        for (std::size_t k = 0; k < own.size(); ++k) {
            // Of a short word nothing may be wrong, or it would stand for any other.
            const unsigned mostOfWord = std::min(most, toleranceFor(word.size()));
            const unsigned wrong = best[k] > most ? far : wordDistance(word, own[k], mostOfWord);
            const unsigned standing = wrong > mostOfWord ? far : best[k] + wrong;
            next[k + 1] = std::min({next[k], standing, far});
        }
        best = std::move(next);
    }
    return best.back();
}

std::vector<std::string> bestOf(std::vector<NearText> candidates) {
    std::stable_sort(candidates.begin(), candidates.end(), [](const NearText& left, const NearText& right) {
        return left.wrongLetters + left.leftOut < right.wrongLetters + right.leftOut;
    });
    // Beside one with hardly a letter wrong, what has more of them is far-fetched.
    std::vector<std::string> names;
    for (const NearText& candidate : candidates) {
        const unsigned least = candidates.front().wrongLetters;
        const bool isNear = least > 1 || candidate.wrongLetters <= least;
        if (isNear && names.size() < mostSuggestions) names.push_back(*candidate.name);
    }
    return names;
}

}  // namespace

unsigned distance(std::string_view left, std::string_view right, unsigned most) {
    const std::size_t gap =
        left.size() > right.size() ? left.size() - right.size() : right.size() - left.size();
    if (gap > most || right.size() >= widest) return most + 1;
    // Three rows of the usual table: a swap looks back two.
    unsigned rows[3][widest] = {};
    unsigned* before = rows[0];
    unsigned* last = rows[1];
    unsigned* row = rows[2];
    for (std::size_t k = 0; k <= right.size(); ++k)
        last[k] = static_cast<unsigned>(k);
    for (std::size_t i = 1; i <= left.size(); ++i) {
        row[0] = static_cast<unsigned>(i);
        for (std::size_t k = 1; k <= right.size(); ++k) {
            const unsigned change = left[i - 1] == right[k - 1] ? 0 : 1;
            row[k] = std::min({last[k] + 1, row[k - 1] + 1, last[k - 1] + change});
            const bool isSwap = i > 1 && k > 1 && left[i - 1] == right[k - 2] && left[i - 2] == right[k - 1];
            if (isSwap) row[k] = std::min(row[k], before[k - 2] + 1);
        }
        std::swap(before, last);
        std::swap(last, row);
    }
    return std::min(last[right.size()], most + 1);
}

std::vector<std::string> nearestNames(std::string_view typed, const std::vector<std::string>& names) {
    if (typed.size() < 2 || typed.size() > longestTyped) return {};
    const unsigned most = toleranceFor(typed.size());
    const std::vector<std::string_view> words = wordsOf(typed);
    std::vector<NearText> candidates;
    for (const std::string& name : names) {
        const std::vector<std::string_view> own = wordsOf(name);
        const unsigned byWords = own.size() >= words.size() ? alignWords(words, own, most) : most + 1;
        const unsigned asWhole = distance(typed, name, most);
        if (std::min(byWords, asWhole) > most) continue;
        const bool isWhole = asWhole <= byWords;
        candidates.push_back({&name, std::min(byWords, asWhole), isWhole ? 0 : own.size() - words.size()});
    }
    return bestOf(std::move(candidates));
}

std::vector<std::string> nearestTexts(std::string_view typed, const std::vector<std::string>& texts) {
    if (typed.size() < 2 || typed.size() > longestTyped) return {};
    const unsigned most = toleranceFor(typed.size());
    std::vector<NearText> candidates;
    for (const std::string& text : texts) {
        const unsigned wrong = wordDistance(typed, text, most);
        if (wrong <= most) candidates.push_back({&text, wrong, 0});
    }
    return bestOf(std::move(candidates));
}

std::string quotedAlternatives(const std::vector<std::string>& texts) {
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) all += i + 1 == texts.size() ? " or " : ", ";
        all += inQuotes(texts[i]);
    }
    return all;
}

}  // namespace vorn_3_1::host::detail
