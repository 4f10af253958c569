// Joins texts with as few allocations as there can be: all parts are measured before the first is copied.
#include "text/joined_text.h"

namespace vorn_3_1::internal {

void append(std::string& text, TextParts parts) {
    std::size_t size = text.size();
    for (const std::string_view part : parts)
        size += part.size();
    if (size > text.capacity()) text.reserve(size);
    for (const std::string_view part : parts)
        text.append(part);
}

std::string joined(TextParts parts) {
    std::string text;
    append(text, parts);
    return text;
}

}  // namespace vorn_3_1::internal
