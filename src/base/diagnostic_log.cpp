// Where log lines go: to the console, or to a stream that refuses everything.
#include "base/diagnostic_log.h"

#include <memory>
#include <ostream>
#include <streambuf>

#include "base/strings.h"

namespace vorn_3_1::internal {

namespace {

/// Overrides nothing but the destructor: the base class refuses every character, so a stream on it
/// fails at its first write and discards this and every later one.
template <class Char>
class basic_nullbuf : public std::basic_streambuf<Char> {
public:
    ~basic_nullbuf() override = default;
};

// Made when somebody first takes the log while it is off, and kept until the library goes. The stream is declared
// last, since it has to go before its buffer.
struct NullLog {
    std::unique_ptr<basic_nullbuf<char>> buffer;
    std::unique_ptr<std::ostream> stream;
};

// Nothing in the library writes to it, since logLine returns first; whoever takes the log himself may.
std::ostream& nullLog() {
    static NullLog log;
    if (log.stream == nullptr) {
        log.buffer = std::make_unique<basic_nullbuf<char>>();
        log.stream = std::make_unique<std::ostream>(log.buffer.get());
    }
    return *log.stream;
}

}  // namespace

bool vornLogEnabled = false;

std::ostream& vornLog() {
    if (!vornLogEnabled) return nullLog();
    MORA_2_10::strings::tm2::openConsole();
    return MORA_2_10::strings::tm2::ucout;
}

void writeLogLine(std::initializer_list<std::string_view> pieces) {
    std::ostream& log = vornLog();
    for (const std::string_view piece : pieces)
        log << piece;
    log.put('\n').flush();
}

}  // namespace vorn_3_1::internal
