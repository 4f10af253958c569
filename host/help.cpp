#include "help.h"

namespace vorn_3_1::host::detail {

std::string helpText(const Table& table, bool all, unsigned, bool) {
    std::string text = "Usage: " + table.path() + " [OPTION...]\n\n" + table.description + "\n\n";
    for (const Record& record : table.records) {
        if (record.isHidden && !all) continue;
        text.append("  ").append(record.shownName()).append("  ").append(record.description).append("\n");
    }
    return text;
}

}  // namespace vorn_3_1::host::detail
