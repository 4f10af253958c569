// Durations as values, of any unit that <chrono> has: 90s, 1h30m, 250ms, 2d.
#ifndef VORN_HOST_DURATION_H
#define VORN_HOST_DURATION_H

#if __cplusplus >= 201703L

#include <chrono>
#include <limits>
#include <ratio>
#include <string>
#include <string_view>
#include <type_traits>

#include "vorn/host/type.h"

namespace vorn_3_1::host {

namespace detail {

/// Reads a duration as nanoseconds.
std::string readDuration(std::string_view text, long long& nanoseconds);
/// The fewest units that say it exactly: "1h30m".
std::string showDuration(long long nanoseconds);

}  // namespace detail

/// A whole number of units is read, unless the unit is counted in fractions: "90s" is no std::chrono::minutes. Reaches
/// some 292 years either way.
template <class Rep, class Period>
struct Type<std::chrono::duration<Rep, Period>> {
    using Duration = std::chrono::duration<Rep, Period>;

    static std::string read(std::string_view text, Duration& value) {
        long long nanoseconds = 0;
        std::string reason = detail::readDuration(text, nanoseconds);
        if (!reason.empty()) return reason;
        if constexpr (isFraction) {
            value = std::chrono::duration_cast<Duration>(std::chrono::nanoseconds(nanoseconds));
            return {};
        } else {
            return readWhole(nanoseconds, value);
        }
    }
    static std::string show(const Duration& value) {
        if constexpr (isFraction) {
            return detail::showDuration(std::chrono::round<std::chrono::nanoseconds>(value).count());
        } else {
            const auto count = static_cast<long long>(value.count());
            return detail::showDuration(count / Unit::den * Unit::num +
                                        count % Unit::den * Unit::num / Unit::den);
        }
    }
    static const char* metavar() { return "DURATION"; }

private:
    using Unit = std::ratio_divide<Period, std::nano>;
    static constexpr bool isFraction = std::chrono::treat_as_floating_point_v<Rep>;

    static std::string showWholes(long long wholes) { return detail::showDuration(wholes * Unit::num); }

    /// Divides before it multiplies, as show does and std::chrono::duration_cast does not: nothing overflows.
    static std::string readWhole(long long nanoseconds, Duration& value) {
        if (nanoseconds % Unit::num != 0)
            return "is finer than " + detail::showDuration(Unit::num / Unit::den);
        using Limits =
            std::numeric_limits<std::conditional_t<sizeof(Rep) < sizeof(long long), Rep, long long>>;
        constexpr long long most = Limits::max() / Unit::den;
        constexpr long long least = std::is_signed_v<Rep> ? Limits::min() / Unit::den : 0;
        const long long wholes = nanoseconds / Unit::num;
        if (wholes > most) return "is too large: at most " + showWholes(most);
        if (wholes < least) return "is too small: at least " + showWholes(least);
        value = Duration(static_cast<Rep>(wholes * Unit::den));
        return {};
    }
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
