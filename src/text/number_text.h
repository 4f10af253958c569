// Numbers from texts and texts from numbers, by the rules of string streams.
//
// value_conversion.cpp calls both ways: for what users type, and for defaults and allowed values in messages and help.
//
//     readNumber     "12abc"         int                     12
//                    " +7"           int                     7
//                    "-1"            unsigned int            4294967295
//                    "99999999999"   int                     false: out of range
//                    "0x1F", "1Fh"   hexadecimal, 64 bits    31
//     writeNumber    1.5             double                  "1.5"
#ifndef VORN_TEXT_NUMBER_TEXT_H
#define VORN_TEXT_NUMBER_TEXT_H

#include <string>
#include <string_view>

namespace vorn_3_1::internal {

/// Reads a number as `std::istringstream(text) >> value` does: leading blanks and a sign are taken, what
/// follows the number is ignored, unsigned types wrap negative numbers, and what is out of range fails.
/// The decimal point and the groups are those of the global locale of the moment. False leaves `value`
/// unspecified. For bool, int, unsigned int, both 64-bit integers and double.
template <class Number>
bool readNumber(std::string_view text, Number& value);

/// The same, but a text of nothing else than "0x" and hexadecimal digits, or hexadecimal digits and "h", is read as
/// `std::istringstream(text) >> std::hex >> value` does. Either letter may be a capital.
bool readNumberOrHexadecimal(std::string_view text, unsigned long long& value);

/// The text that `std::ostringstream() << value` gives. For the same types.
template <class Number>
std::string writeNumber(Number value);

}  // namespace vorn_3_1::internal

#endif
