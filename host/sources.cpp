// Files of arguments: response files and settings. Of this text, line 3 is the argument "--title=a b":
//
//     # how they look
//
//       --title=a b
//
// Nothing is quoted: a blank inside a line belongs to the argument, and so do those at its end.
#include "sources.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace vorn_3_1::host::detail {

namespace {

/// More is no list of arguments but perhaps a pipe without an end.
constexpr std::size_t largest = 64U << 20;

struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::string_view withoutBlanks(std::string_view line) {
    const std::size_t begin = line.find_first_not_of(" \t\v\f\r");
    if (begin == std::string_view::npos || line[begin] == ';' || line[begin] == '#') return {};
    const std::size_t end = line.find_last_not_of('\r');
    return line.substr(begin, end + 1 - begin);
}

}  // namespace

std::string readTextFile(const std::string& path, std::string& text, bool& isMissing) {
    const std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rb"));
    isMissing = file == nullptr && (errno == ENOENT || errno == ENOTDIR);
    if (file == nullptr) return std::strerror(errno);
    char block[4096];
    errno = 0;
    while (const std::size_t count = std::fread(block, 1, sizeof block, file.get())) {
        if (std::memchr(block, '\0', count) != nullptr) return "it holds a NUL character and is no text";
        if (text.size() + count > largest) return "it is larger than 64 MiB";
        text.append(block, count);
    }
    return std::ferror(file.get()) != 0 ? std::strerror(errno) : "";
}

std::vector<Argument> argumentsIn(std::string_view text, unsigned source) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) text.remove_prefix(byteOrderMark.size());
    std::vector<Argument> arguments;
    for (int line = 1; !text.empty(); ++line) {
        const std::size_t end = text.find('\n');
        const std::string_view argument = withoutBlanks(text.substr(0, end));
        if (!argument.empty()) arguments.push_back({std::string(argument), source, line});
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return arguments;
}

}  // namespace vorn_3_1::host::detail
