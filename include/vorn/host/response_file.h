// Reading a response file.
#ifndef VORN_HOST_RESPONSE_FILE_H
#define VORN_HOST_RESPONSE_FILE_H

#if __cplusplus >= 201703L

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "vorn/host/value_type.h"

namespace vorn_3_1::host::detail {

struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

/// Reads the whole file, or says why it is no response file.
inline bool readResponseFile(const char* name, std::string& text, std::string& error) {
    const std::unique_ptr<std::FILE, Close> file(std::fopen(name, "rb"));
    if (file != nullptr) {
        char block[4096];
        while (const std::size_t count = std::fread(block, 1, sizeof block, file.get()))
            text.append(block, count);
    }
    if (file == nullptr || std::ferror(file.get()) != 0) {
        error = joined({"Cannot read response file '", name, "': ", std::strerror(errno)});
        return false;
    }
    // parseStream would end there, and silently drop the rest.
    if (text.find('\0') != std::string::npos) {
        error = joined({"Response file '", name, "' is not a text"});
        return false;
    }
    return true;
}

}  // namespace vorn_3_1::host::detail

#endif  // C++17

#endif
