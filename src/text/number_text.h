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

/// How the digits of a text are read. Only integers can be hexadecimal.
enum class Base { decimal, hexadecimal };

/// Reads a number as `std::istringstream(text) >> value` does: leading blanks and a sign are taken, what
/// follows the number is ignored, unsigned types wrap negative numbers, and what is out of range fails.
/// The decimal point and the groups are those of the global locale of the moment. False leaves `value`
/// unspecified. For bool, int, unsigned int, both 64-bit integers and double.
template <class Number>
bool readNumber(std::string_view text, Base base, Number& value);

/// The text that `std::ostringstream() << value` gives. For the same types.
template <class Number>
std::string writeNumber(Number value);

}  // namespace vorn_3_1::internal

#endif
