// What is known of standard output: its width and whether it shows colours. Only parseOrExit (exit.cpp) asks;
// a host that makes help itself says both in its HelpStyle.
#include "terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace vorn_3_1::host::detail {

namespace {

constexpr unsigned usualColumns = 80;
constexpr unsigned mostColumns = 100;  // longer lines are hard to read

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

unsigned terminalColumns() {
    winsize size = {};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): there is no other way
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

/// 0 unless it is a number.
unsigned toldColumns() {
    const std::string_view text = variable("COLUMNS");
    unsigned columns = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), columns);
    return end.ec == std::errc() && end.ptr == text.data() + text.size() ? columns : 0;
}

}  // namespace

unsigned outputColumns() {
    unsigned columns = terminalColumns();
    if (columns == 0) columns = toldColumns();
    if (columns == 0) columns = usualColumns;
    return std::min(columns, mostColumns);
}

bool outputHasColours(Colours wanted) {
    if (wanted != Colours::automatic) return wanted == Colours::always;
    return isatty(STDOUT_FILENO) == 1 && variable("NO_COLOR").empty() && variable("TERM") != "dumb";
}

}  // namespace vorn_3_1::host::detail
