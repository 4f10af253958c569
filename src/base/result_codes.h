// The result codes of the parse operations and queries; 0 is success.
#ifndef VORN_BASE_RESULT_CODES_H
#define VORN_BASE_RESULT_CODES_H

namespace vorn_3_1::internal {

constexpr int refusedByHandler = 1;
constexpr int invalidArgument = 2;
constexpr int exceptionCaught = 3;
constexpr int exceptionInParse = 4;

constexpr int notFound = 1;  // of a query

}  // namespace vorn_3_1::internal

#endif
