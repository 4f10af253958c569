// The questions that a run answers, each in a file of its own.
#ifndef BENCHMARKS_QUESTIONS_H
#define BENCHMARKS_QUESTIONS_H

#include <cstddef>
#include <string>
#include <vector>

#include "measure.h"
#include "peer.h"
#include "report.h"
#include "workload.h"

namespace bench {

struct Settings {
    std::vector<std::size_t> optionCounts;    ///< In rising order.
    std::vector<std::size_t> argumentCounts;  ///< In rising order.
    std::vector<Form> forms;
    std::vector<PeerInfo> peers;  ///< Without ours.
    std::size_t few, many;        ///< Ends of the growth that is looked at; few arguments, many arguments.
    std::size_t manyOptions;      ///< The most options whose registration is timed.
    Plan plan;
};

/// What does an argument cost, beside every peer, by options, arguments and how names are typed?
void askParsing(const Settings& settings, Report& report);
/// What does an option cost to register and to release?
void askRegistration(const Settings& settings, Report& report);
/// How does the cost of one grow with the number of all?
void askGrowth(const Settings& settings, Report& report);
/// What does a value cost to read, and an argument from a text?
void askReading(const Settings& settings, Report& report);
/// How much memory, in how many pieces?
void askHeap(const Settings& settings, Report& report);
/// What does every run of every host pay: process start, size, help?
void askSmallThings(const Settings& settings, Report& report);

}  // namespace bench

#endif
