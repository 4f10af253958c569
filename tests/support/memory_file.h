#ifndef VORN_TESTS_SUPPORT_MEMORY_FILE_H
#define VORN_TESTS_SUPPORT_MEMORY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace vorn_tests {

/// A file in memory, which can be written anew.
struct MemoryFile {
    explicit MemoryFile(const std::string& text = "") { write(text); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(file); }

    void write(const std::string& text) const {
        const bool isWritten = ftruncate(file, 0) == 0 &&
                               pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
        if (!isWritten) throw std::runtime_error("a file in memory cannot be written");
    }

    const int file = memfd_create("vorn", 0);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
};

}  // namespace vorn_tests

#endif
