// Copies of texts that live as long as their keeper.
#ifndef VORN_HOST_KEPT_TEXTS_H
#define VORN_HOST_KEPT_TEXTS_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace vorn_3_1::host::detail {

/// Texts stand behind each other in blocks. By hand: a std::pmr arena does the same, but the loader looks up each of its
/// functions at the first call in a process, which took a twentieth of registering 100 options and parsing.
class KeptTexts {
public:
    /// A copy of the two in a row, with a NUL behind it.
    std::string_view keep(std::string_view front, std::string_view text) {
        const std::size_t size = front.size() + text.size();
        if (size >= left) addBlock(size + 1);
        char* const kept = next;
        text.copy(std::copy(front.begin(), front.end(), kept), text.size());
        kept[size] = '\0';
        next += size + 1;
        left -= size + 1;
        return {kept, size};
    }

private:
    /// Each twice as large as the last one, up to a bound.
    void addBlock(std::size_t size) {
        constexpr std::size_t smallest = 1024;
        constexpr std::size_t mostDoublings = 6;
        size = std::max(size, smallest << std::min(blocks.size(), mostDoublings));
        blocks.push_back(std::unique_ptr<char[]>(new char[size]));
        next = blocks.back().get();
        left = size;
    }

    std::vector<std::unique_ptr<char[]>> blocks;
    char* next = nullptr;  ///< Free, with `left` bytes.
    std::size_t left = 0;
};

}  // namespace vorn_3_1::host::detail

#endif
