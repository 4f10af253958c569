// Texts put together from parts; every message and heading is built with it.
//
//     joined({"Unknown option: ", argument})      "Unknown option: -zz"
//
// The parts are measured first, so a message costs one allocation, however many parts it has.
#ifndef VORN_TEXT_JOINED_TEXT_H
#define VORN_TEXT_JOINED_TEXT_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace vorn_3_1::internal {

using TextParts = std::initializer_list<std::string_view>;

/// Appends the parts. They may not lie in the text itself, which may move.
void append(std::string& text, TextParts parts);
/// The parts as one new text.
std::string joined(TextParts parts);

}  // namespace vorn_3_1::internal

#endif
