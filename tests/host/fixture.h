// What the tests of the companion header share.
#ifndef VORN_TESTS_HOST_FIXTURE_H
#define VORN_TESTS_HOST_FIXTURE_H

#include "support/fixture.h"
#include "vorn/host.h"

namespace vorn_3_1::host_tests {

using Text = std::string_view;

/// An argument vector from the words of a line.
struct CommandLine {
    explicit CommandLine(const std::string& line) : words(public_tests::wordsOf("/usr/bin/tool " + line)) {
        for (std::string& word : words)
            argv.push_back(word.data());
        argc = static_cast<int>(argv.size());
        argv.push_back(nullptr);
    }

    std::vector<std::string> words;
    std::vector<char*> argv;
    int argc;
};

inline host::Outcome parse(host::Parser& parser, const std::string& line, host::Result into = {}) {
    CommandLine command(line);
    return parser.parse(command.argc, command.argv.data(), std::move(into));
}

/// "option=text" or "option" for everything given, in the order of the command line.
inline std::string listOf(const std::vector<host::Given>& all) {
    std::string list;
    for (const host::Given& one : all) {
        list.append(one.option).append(one.hasValue() ? "=" : "").append(one.text).append(" ");
    }
    return list;
}

/// What the error says that the action throws; "" if it throws none.
template <class Error, class Action>
std::string complaintOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "";
}

template <class T>
std::string joined(const std::vector<T>& values) {
    std::ostringstream text;
    for (const T& value : values)
        text << value << ' ';
    return text.str();
}

}  // namespace vorn_3_1::host_tests

#endif
