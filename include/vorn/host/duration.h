// Durations as values, of any unit that <chrono> has: 90s, 1h30m, 250ms, 2d.
#ifndef VORN_HOST_DURATION_H
#define VORN_HOST_DURATION_H

#if __cplusplus >= 201703L

#include <chrono>
#include <limits>
#include <string>
#include <string_view>

#include "vorn/host/type.h"

namespace vorn_3_1::host {

namespace detail {

/// Reads a duration as nanoseconds.
std::string readDuration(std::string_view text, long long& nanoseconds);
/// The fewest units that say it exactly: "1h30m".
std::string showDuration(long long nanoseconds);

}  // namespace detail

/// A whole number of units is read: "90s" is no std::chrono::minutes. Reaches some 292 years either way.
template <class Rep, class Period>
struct Type<std::chrono::duration<Rep, Period>> {
    using Duration = std::chrono::duration<Rep, Period>;

    static std::string read(std::string_view text, Duration& value) {
        long long nanoseconds = 0;
        const std::string reason = detail::readDuration(text, nanoseconds);
        if (!reason.empty()) return reason;
        const std::chrono::nanoseconds exact(nanoseconds);
        const Duration found = std::chrono::duration_cast<Duration>(exact);
        if (std::chrono::duration_cast<std::chrono::nanoseconds>(found) != exact) {
            return "is finer than " + detail::showDuration(unit());
        }
        value = found;
        return {};
    }
    static std::string show(const Duration& value) {
        return detail::showDuration(std::chrono::duration_cast<std::chrono::nanoseconds>(value).count());
    }
    static const char* metavar() { return "DURATION"; }

private:
    static long long unit() {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(Duration(1)).count();
    }
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
