#include "measure.h"

#include <algorithm>
#include <cmath>

namespace bench {
namespace {

constexpr std::size_t leastRounds = 3;

double nowInNanoseconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

double timeOf(const Subject& subject, int repetitions, clockid_t clock) {
    if (subject.prepare) {
        subject.prepare();
    }
    const double start = nowInNanoseconds(clock);
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        subject.run();
    }
    return nowInNanoseconds(clock) - start;
}

// Two runs to warm up; the second one says how often to repeat.
int repetitionsFor(const Subject& subject, const Plan& plan) {
    timeOf(subject, 1, plan.clock);
    const double once = timeOf(subject, 1, plan.clock);
    return subject.prepare ? 1 : static_cast<int>(std::clamp(std::ceil(plan.sampleNs / once), 1.0, 1e6));
}

}  // namespace

std::vector<Series> measure(const std::vector<Subject>& subjects, const Plan& plan) {
    std::vector<Series> all(subjects.size());
    std::vector<double> used(subjects.size());
    std::vector<int> repetitions;
    for (const Subject& subject : subjects) {
        repetitions.push_back(repetitionsFor(subject, plan));
    }
    for (int round = 0; round < plan.rounds; ++round) {
        for (std::size_t turn = 0; turn < subjects.size(); ++turn) {
            // Who begins changes, so that no subject always follows the same one.
            const std::size_t index = (turn + static_cast<std::size_t>(round)) % subjects.size();
            if (used[index] > plan.allowanceNs && all[index].size() >= leastRounds) {
                continue;
            }
            const double time = timeOf(subjects[index], repetitions[index], plan.clock);
            used[index] += time;
            all[index].push_back(time / repetitions[index] / subjects[index].units);
        }
    }
    return all;
}

double median(Series figures) {
    std::sort(figures.begin(), figures.end());
    const std::size_t middle = figures.size() / 2;
    return figures.size() % 2 == 1 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

double medianRatio(const Series& ours, const Series& theirs) {
    Series ratios(std::min(ours.size(), theirs.size()));
    std::transform(ours.begin(), ours.begin() + static_cast<std::ptrdiff_t>(ratios.size()), theirs.begin(),
                   ratios.begin(), [](double own, double other) { return own / other; });
    return median(ratios);
}

}  // namespace bench
