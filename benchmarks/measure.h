// Taking time. Subjects run in turns within one round, so that what disturbs the machine disturbs all of
// them, and are compared by the median of the rounds' ratios.
#ifndef BENCHMARKS_MEASURE_H
#define BENCHMARKS_MEASURE_H

#include <time.h>

#include <cstddef>
#include <functional>
#include <vector>

namespace bench {

struct Plan {
    int rounds;          ///< At most; each subject runs in at least three.
    double sampleNs;     ///< A subject is repeated within a round until it takes about this long.
    double allowanceNs;  ///< A subject that has used this much sits out the remaining rounds.
    clockid_t clock = CLOCK_THREAD_CPUTIME_ID;  ///< What other processes use does not count.
};

struct Subject {
    std::function<void()> run;
    double units;  ///< What one run does: arguments, options, values.
    std::function<void()> prepare =
        nullptr;  ///< Runs before each run, off the clock; then nothing is repeated.
};

/// Nanoseconds per unit, one figure for each round from the first on.
using Series = std::vector<double>;

std::vector<Series> measure(const std::vector<Subject>& subjects, const Plan& plan);

double median(Series figures);

/// The median of ours / theirs over the rounds that both took part in.
double medianRatio(const Series& ours, const Series& theirs);

}  // namespace bench

#endif
