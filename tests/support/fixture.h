// What the tests of the public interface share: a parser with its result, events written down, output caught.
#ifndef VORN_TESTS_SUPPORT_FIXTURE_H
#define VORN_TESTS_SUPPORT_FIXTURE_H

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "vorn/vorn.h"

namespace vorn_3_1::public_tests {

using namespace tamsu2;

using Texts = std::vector<std::string>;

/// The words of a line; '' is an empty one, and ~ a blank inside a word.
inline Texts wordsOf(const std::string& line) {
    Texts words;
    std::istringstream input(line);
    for (std::string word; input >> word;) {
        std::replace(word.begin(), word.end(), '~', ' ');
        words.push_back(word == "''" ? "" : word);
    }
    return words;
}

/// The pattern with the text in the place of every '%'.
inline std::string filled(std::string pattern, const std::string& text) {
    for (std::size_t at = pattern.find('%'); at != pattern.npos; at = pattern.find('%', at + text.size())) {
        pattern.replace(at, 1, text);
    }
    return pattern;
}

/// A parser and the result that it fills. Outcomes are "0", or the code and the error text; lists of texts
/// stand in brackets: "[a][b,c]".
struct Cli {
    explicit Cli(int flags = 0, int (*create)(IParser**, int) = createParser) {
        EXPECT_EQ(create(&parser, flags), 0);
        EXPECT_EQ(parser->createResult(&result), 0);
    }
    Cli(const Cli&) = delete;
    ~Cli() {
        if (parser != nullptr) parser->destroy();
        result->destroy();
    }

    IOption* option(const char* names, qel_variant_type_t type = qel_string, const char* description = "",
                    const char* group = "") const {
        return parser->option(names, description, type, group);
    }

    std::string outcome(int code) const {
        return code == 0 ? "0" : std::to_string(code) + " " + parser->getErrorDesc();
    }
    std::string parseInto(IParseResult* target, Texts arguments) const {
        std::vector<char*> argv{arguments.insert(arguments.begin(), "--host")->data()};
        for (std::size_t i = 1; i < arguments.size(); ++i)
            argv.push_back(arguments[i].data());
        return outcome(parser->parseArgsVector(static_cast<int>(argv.size()), argv.data(), target));
    }
    std::string parse(const std::string& line) const { return parseInto(result, wordsOf(line)); }
    std::string parseStream(const char* text) const { return outcome(parser->parseStream(text, result)); }

    /// All that get and next deliver; [null] for each occurrence of an option without values.
    std::string values(const std::string& name, int low = 0, int high = INT_MAX) const {
        std::string texts;
        for (Value value = result->get(name.c_str(), low, high); value.status == 0;
             value = result->next("")) {
            texts += std::string("[") + (value.text == nullptr ? "null" : value.text) + "]";
        }
        return texts;
    }

    /// The named options that are present with their values: "a[1] b[x][y] ".
    std::string stored(const std::string& names) const {
        std::string texts;
        for (const std::string& name : wordsOf(names)) {
            if (result->present(name.c_str())) texts += name + values(name) + " ";
        }
        return texts;
    }

    std::vector<int> occurrences(const char* name) const {
        std::vector<int> positions;
        result->present(name);
        for (int at = result->nextPosition(); at != INT_MAX; at = result->nextPosition())
            positions.push_back(at);
        return positions;
    }

    std::string passedThrough() const {
        std::string texts;
        const char* text = nullptr;
        for (int code = result->getFirstArgument(&text); code == 0; code = result->getNextArgument(&text)) {
            texts += std::string("[") + text + "]";
        }
        return texts;
    }

    IParser* parser = nullptr;
    IParseResult* result = nullptr;
};

/// Writes every event down as "1name ", "1name=value " or "1?argument ", where 1 is the label; the functions,
/// where set, act inside the event and give its answer.
struct Recorder : EventHandler {
    explicit Recorder(std::string& events, char letter = ':') : journal(events), label(1, letter) {}

    bool onOptionParse(const char* name) override {
        journal += label + name + " ";
        if (const std::function<void()> action = atOption) action();  // a copy: it may clear atOption
        return false;                                                 // must not matter
    }
    bool onValueParse(const char* name, const Value& value) override {
        journal += label + name + "=" + value.text + " ";
        return !atValue || atValue(value);
    }
    bool onUknownArgument(const char* argument) override {
        journal += label + "?" + argument + " ";
        return !atUnknown || atUnknown();
    }

    std::string& journal;
    const std::string label;
    std::function<void()> atOption;
    std::function<bool(const Value&)> atValue;
    std::function<bool()> atUnknown;
};

/// Takes over standard output as long as it lives.
struct OutputCapture : std::stringbuf {
    OutputCapture() : previous(std::cout.rdbuf(this)) {}
    ~OutputCapture() override { std::cout.rdbuf(previous); }
    int sync() override { return ++flushes, 0; }

    std::streambuf* const previous;
    int flushes = 0;
};

template <class Action>
std::string standardErrorOf(Action action) {
    testing::internal::CaptureStderr();
    action();
    return testing::internal::GetCapturedStderr();
}

inline void expectMiss(const Value& value) {
    EXPECT_TRUE(value.text == nullptr && value.status == 1 && value.position == INT_MAX);
    EXPECT_EQ(value.value.kind(), qel_empty);
}

const char* const logSwitch = "vornoption=vornlogenable=1";

}  // namespace vorn_3_1::public_tests

#endif
