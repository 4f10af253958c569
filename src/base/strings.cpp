#include "base/strings.h"

#ifdef __GLIBCXX__

#include <ostream>

// Declared here instead of including <iostream>: in this standard library that header puts a static
// initialiser, which sets up eight streams and their locale, into the start of every process that loads us.
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
