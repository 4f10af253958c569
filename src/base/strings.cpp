// The console and the two conversions, which convert nothing as long as the suite's string library is not there.
#include "base/strings.h"

#include <ostream>

// Before GCC 13, <iostream> puts a static initialiser into every file that includes it. It sets up eight streams with
// their locale whenever a process loads this library, which is 120,000 instructions, and few processes write a log or a
// refused name. So the two streams are declared here as their header declares them. From GCC 13 on the C++ library sets
// its streams up itself, and the header is included like any other.
#if defined(__GLIBCXX__) && _GLIBCXX_RELEASE < 13

namespace std {
extern ostream cout;
extern ostream cerr;
}  // namespace std

#else

#include <iostream>

#endif

namespace MORA_2_10::strings::tm2 {

std::string to_ustring(const char* text) { return text; }

std::string to_utf8(const std::string& text) { return text; }

std::ostream& ucout = std::cout;
std::ostream& ucerr = std::cerr;

void openConsole() { static const std::ios_base::Init streams; }

}  // namespace MORA_2_10::strings::tm2
