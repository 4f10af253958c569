// What this library takes from the suite's string library: two conversions and the console.
//
// The names are the suite's. Where that library exists, it takes the place of this file; until then the library's
// strings are byte strings, and nothing is converted.
#ifndef VORN_BASE_STRINGS_H
#define VORN_BASE_STRINGS_H

#include <iosfwd>
#include <string>

namespace MORA_2_10::strings::tm2 {

/// A host's text as the library's string. The library's strings are byte strings: taken as it is.
std::string to_ustring(const char* text);

/// The library's string as UTF-8, byte for byte.
std::string to_utf8(const std::string& text);

/// The console stream, which is standard output. Call openConsole() before the first use.
extern std::ostream& ucout;

/// Standard error, where a refused option name is written. Call openConsole() before the first use.
extern std::ostream& ucerr;

/// Makes the two streams usable, also in a process that uses no standard stream of its own. May be called often.
void openConsole();

}  // namespace MORA_2_10::strings::tm2

#endif
