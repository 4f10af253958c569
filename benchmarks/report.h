// The Markdown that a run writes: tables, and the goals with what was measured.
#ifndef BENCHMARKS_REPORT_H
#define BENCHMARKS_REPORT_H

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// Three digits or so: "1860", "53.2", "0.81", "0.058".
std::string figure(double value);

using Row = std::vector<std::string>;

class Report {
public:
    explicit Report(std::ostream& stream) : out(stream) {}

    void heading(const std::string& title);
    void paragraph(const std::string& text);
    void table(const Row& header, const std::vector<Row>& rows);

    /// Notes a goal for the closing table. No figure means that this build cannot measure it.
    void goal(const std::string& text, double bound, std::optional<double> measured,
              const std::string& unit = "times");
    void goals();

private:
    std::ostream& out;
    std::vector<Row> noted;
};

}  // namespace bench

#endif
