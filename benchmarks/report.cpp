#include "report.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace bench {

std::string figure(double value) {
    const bool isWhole = value == std::floor(value);
    const int decimals = isWhole || value >= 100 ? 0 : value >= 10 ? 1 : value >= 0.1 ? 2 : 3;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

void Report::heading(const std::string& title) { out << "### " << title << "\n\n"; }

void Report::paragraph(const std::string& text) { out << text << "\n\n"; }

void Report::table(const Row& header, const std::vector<Row>& rows) {
    const auto write = [this](const Row& row) {
        for (const std::string& cell : row) {
            out << "| " << cell << " ";
        }
        out << "|\n";
    };
    write(header);
    write(Row(header.size(), "---"));
    for (const Row& row : rows) {
        write(row);
    }
    out << std::endl;
}

void Report::goal(const std::string& text, double bound, std::optional<double> measured,
                  const std::string& unit) {
    const std::string verdict = !measured ? "-" : *measured <= bound ? "met" : "**missed**";
    noted.push_back(
        {text, figure(bound) + " " + unit, measured ? figure(*measured) : "not measured", verdict});
}

void Report::goals() {
    heading("Goals");
    table({"goal", "bound", "measured", "met?"}, noted);
}

}  // namespace bench
