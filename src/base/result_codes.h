// The result codes of the parse operations and queries; 0 is success. Hosts compare them: they are contract.
#ifndef VORN_BASE_RESULT_CODES_H
#define VORN_BASE_RESULT_CODES_H

namespace vorn_3_1::internal {

// Of parseArgsVector and parseStream.
constexpr int refusedByHandler = 1;  // a handler said no to a value
constexpr int invalidArgument = 2;   // a bad value, or an option that is misused, ambiguous or unknown
constexpr int exceptionInParse = 4;  // a std::exception in the loop over the arguments

// A std::exception anywhere else, there and in all other operations that give a code.
constexpr int exceptionCaught = 3;

// Of a query.
constexpr int notFound = 1;

}  // namespace vorn_3_1::internal

#endif
