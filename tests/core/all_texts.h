// Inputs for rules that are compared with their plain form.
#ifndef VORN_TESTS_CORE_ALL_TEXTS_H
#define VORN_TESTS_CORE_ALL_TEXTS_H

#include <string>
#include <string_view>
#include <vector>

/// Every text over the alphabet up to a length, shorter ones first.
inline std::vector<std::string> allTexts(std::string_view alphabet, std::size_t longest) {
    std::vector<std::string> texts{""};
    for (std::size_t i = 0; texts[i].size() < longest; ++i) {
        for (const char character : alphabet)
            texts.push_back(texts[i] + character);
    }
    return texts;
}

#endif
