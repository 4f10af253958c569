// Texts that a host hands over.
#ifndef VORN_HOST_TEXT_H
#define VORN_HOST_TEXT_H

#if __cplusplus >= 201703L

#include <string>
#include <string_view>

namespace vorn_3_1::host {

/// A text that is only looked at during the call. A null pointer is the empty text.
struct Text : std::string_view {
    Text() = default;
    Text(const char* text) : std::string_view(text != nullptr ? text : "") {}
    Text(const std::string& text) : std::string_view(text) {}
    Text(std::string_view text) : std::string_view(text) {}
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
