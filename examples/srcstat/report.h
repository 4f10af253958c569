// The table that the tool prints.
#ifndef SRCSTAT_REPORT_H
#define SRCSTAT_REPORT_H

#include <string>
#include <vector>

#include "line_counter.h"

namespace srcstat {

struct Row {
    std::string name;
    LineCounts counts;
};

struct Look {
    bool comments = true;
    bool blanks = true;
    bool colour = false;
};

/// A set of files with one row for each of them, or none if only the sum is wanted.
struct Section {
    Row sum;
    std::vector<Row> files;
};

void printReport(const std::vector<Section>& sections, const Look& look);

}  // namespace srcstat

#endif
