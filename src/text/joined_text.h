// Texts put together from parts; every message and heading is built with it.
#ifndef VORN_TEXT_JOINED_TEXT_H
#define VORN_TEXT_JOINED_TEXT_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace vorn_3_1::internal {

using TextParts = std::initializer_list<std::string_view>;

void append(std::string& text, TextParts parts);
std::string joined(TextParts parts);

}  // namespace vorn_3_1::internal

#endif
