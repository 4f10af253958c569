#ifndef VORN_TESTS_SUPPORT_MEMORY_FILE_H
#define VORN_TESTS_SUPPORT_MEMORY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace vorn_tests {

/// A file in memory, which can be written anew.
class MemoryFile {
public:
    explicit MemoryFile(const std::string& text = "")
        : file(memfd_create("vorn", 0)), path("/proc/self/fd/" + std::to_string(file)) {
        write(text);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(file); }

    void write(const std::string& text) const {
        const bool isWritten = ftruncate(file, 0) == 0 &&
                               pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
        if (!isWritten) throw std::runtime_error("a file in memory cannot be written");
    }

private:
    const int file;

public:
    const std::string path;
};

}  // namespace vorn_tests

#endif
