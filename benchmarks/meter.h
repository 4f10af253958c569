// Taking time within one process, and counting the calls of malloc, which is where every other allocator ends.
#ifndef BENCHMARKS_METER_H
#define BENCHMARKS_METER_H

#include <time.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace bench {

/// How often malloc, calloc and realloc have been called.
extern std::size_t heapCalls;

/// For what takes less than the other clock needs to be asked.
inline double nanoseconds() {
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// The processor time of this thread: what other processes use meanwhile does not count.
inline double ownNanoseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

/// The median of what `sample` gives, called again and again for 30 milliseconds, three times at least.
template <class Sample>
double medianOf(Sample sample) {
    std::vector<double> figures;
    for (const double end = nanoseconds() + 30e6; figures.size() < 3 || nanoseconds() < end;)
        figures.push_back(sample());
    std::nth_element(figures.begin(), figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2),
                     figures.end());
    return figures[figures.size() / 2];
}

/// What one `run` takes, of as many as fill a millisecond: the clock's own cost drowns.
template <class Run>
double medianTime(Run run) {
    std::size_t times = 1;
    const auto sample = [&] {
        const double begun = ownNanoseconds();
        for (std::size_t i = 0; i < times; ++i)
            run();
        return (ownNanoseconds() - begun) / static_cast<double>(times);
    };
    times = static_cast<std::size_t>(std::clamp(1e6 / sample(), 1.0, 1e6));
    return medianOf(sample);
}

}  // namespace bench

#endif
