// Paths as values: std::filesystem::path.
#ifndef VORN_HOST_PATH_H
#define VORN_HOST_PATH_H

#if __cplusplus >= 201703L

#include <filesystem>
#include <string>
#include <string_view>

#include "vorn/host/type.h"

namespace vorn_3_1::host {

template <>
struct Type<std::filesystem::path> {
    static std::string read(std::string_view text, std::filesystem::path& value);
    static std::string show(const std::filesystem::path& value);
    static const char* metavar();
};

namespace detail {

template <>
struct CompletionOf<std::filesystem::path> {
    static constexpr Completion kind = Completion::files;
};

extern template class TypedValues<std::filesystem::path>;

}  // namespace detail
}  // namespace vorn_3_1::host

#endif  // C++17

#endif
