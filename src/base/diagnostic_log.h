// The diagnostic log: trace lines on the console, or nowhere.
//
// A user switches it on with the hidden first argument "vornoption=vornlogenable=1", whatever the host. Recognisers, the
// registry and the parser then write what they find, one line each, led by the writer's name:
//
//     logLine("AbbreviationParser", ": parsing argument '", argument, "'");
//
//     AbbreviationParser: parsing argument '--level=5'
#ifndef VORN_BASE_DIAGNOSTIC_LOG_H
#define VORN_BASE_DIAGNOSTIC_LOG_H

#include <initializer_list>
#include <iosfwd>
#include <string_view>

namespace vorn_3_1::internal {

/// Whether the log is on, for the whole process. Written by BasicParser::parse only; keeps its value between
/// parses.
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

/// The same, but while the log is off no piece is touched. What costs something to put together is put
/// together by the caller only while vornLogEnabled.
template <class... Pieces>
inline void logLine(const Pieces&... pieces) {
    if (vornLogEnabled) [[unlikely]]
        writePieces(pieces...);
}

}  // namespace vorn_3_1::internal

#endif
