// What the tests of the companion share.
#ifndef VORN_TESTS_HOST_FIXTURE_H
#define VORN_TESTS_HOST_FIXTURE_H

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/memory_file.h"
#include "vorn/host.h"

namespace host = vorn::host;
using Kind = host::Error::Kind;
using Texts = std::vector<std::string>;
using vorn_tests::MemoryFile;

/// All that is wrong, a line each.
inline std::string said(const host::Outcome& outcome) {
    std::string all;
    for (const host::Error& error : outcome.errors())
        all += (all.empty() ? "" : "\n") + error.text();
    return all;
}

inline std::string joined(const Texts& texts, const char* between = " ") {
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : between) + text;
    return all;
}

/// The text of what the action throws, "" if nothing.
template <class Exception, class Action>
std::string thrownBy(Action action) {
    try {
        action();
    } catch (const Exception& exception) {
        return exception.what();
    }
    return "";
}

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A text of several lines that is expected to be shown, from the folder of these tests.
inline std::string page(const std::string& name) { return contentOf(VORN_TEST_PAGES "/" + name); }

inline host::Result parseOrExit(host::Parser& parser, const Texts& typed) {
    std::vector<const char*> argv = {"tool"};
    for (const std::string& text : typed)
        argv.push_back(text.c_str());
    return parser.parseOrExit(static_cast<int>(argv.size()), argv.data());
}

/// How a process ended, and what it wrote.
struct Ended {
    int code;  // of a signal its negative number
    std::string output;
    std::string errors;
};

/// Runs the action in a process of its own, whose output has been prepared.
template <class Action, class Prepare>
Ended endOf(Action action, Prepare prepareOutput) {
    const MemoryFile output, errors;
    std::fflush(stdout);  // or the child would write it, too
    const pid_t child = fork();
    if (child == 0) {
        const bool isOpen = std::freopen(output.path.c_str(), "w", stdout) != nullptr &&
                            std::freopen(errors.path.c_str(), "w", stderr) != nullptr;
        if (!isOpen) _exit(99);
        prepareOutput();
        std::exit(action());
    }
    int status = 0;
    waitpid(child, &status, 0);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return {code, contentOf(output.path), contentOf(errors.path)};
}

#endif
