// The diagnostic log: trace lines on the console, or nowhere.
#ifndef VORN_BASE_DIAGNOSTIC_LOG_H
#define VORN_BASE_DIAGNOSTIC_LOG_H

#include <initializer_list>
#include <iosfwd>
#include <string_view>

namespace vorn_3_1::internal {

/// Whether the log is on. Written by BasicParser::parse only; keeps its value between parses.
extern bool vornLogEnabled;

/// The console while the log is on, otherwise a stream that discards everything, the same every time.
std::ostream& vornLog();

/// Writes the pieces to vornLog() as one flushed line.
void writeLogLine(std::initializer_list<std::string_view> pieces);

// Out of its caller's way: the caller needs no room for the pieces while the log is off.
template <class... Pieces>
[[gnu::cold, gnu::noinline]] void writePieces(const Pieces&... pieces) {
    writeLogLine({std::string_view(pieces)...});
}

/// The same, but while the log is off no piece is touched.
template <class... Pieces>
inline void logLine(const Pieces&... pieces) {
    if (vornLogEnabled) [[unlikely]]
        writePieces(pieces...);
}

}  // namespace vorn_3_1::internal

#endif
