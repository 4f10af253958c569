// What the tests of the companion share.
#ifndef VORN_TESTS_HOST_FIXTURE_H
#define VORN_TESTS_HOST_FIXTURE_H

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "vorn/host.h"

namespace host = vorn::host;
using Kind = host::Error::Kind;
using Texts = std::vector<std::string>;

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
    std::string all;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    for (int next = file != nullptr ? std::fgetc(file) : EOF; next != EOF; next = std::fgetc(file))
        all += static_cast<char>(next);
    if (file != nullptr) std::fclose(file);
    return all;
}

/// A text of several lines that is expected to be shown, from the folder of these tests.
inline std::string page(const std::string& name) { return contentOf(VORN_TEST_PAGES "/" + name); }

/// A file with a content, which lives as long as this.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content) {
        char name[] = "/tmp/vorn-host-XXXXXX";
        const int made = mkstemp(name);
        path = name;
        std::FILE* file = fdopen(made, "wb");
        std::fwrite(content.data(), 1, content.size(), file);
        std::fclose(file);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::remove(path.c_str()); }

    std::string path;
};

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
    const TemporaryFile output(""), errors("");
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
