#include "report.h"

#include <algorithm>
#include <cstdio>

namespace srcstat {

namespace {

enum class Style { plain, strong, faint };

class Table {
public:
    Table(const Look& wanted, std::size_t width) : look(wanted), nameWidth(static_cast<int>(width)) {}

    void printHeading() const {
        begin(Style::faint);
        std::printf("%-*s %8s %8s", nameWidth, "", "files", "code");
        if (look.comments) std::printf(" %8s", "comments");
        if (look.blanks) std::printf(" %8s", "blank");
        std::printf(" %8s", "lines");
        end();
    }

    void print(const Row& row, const char* indent, Style style) const {
        begin(style);
        std::printf("%-*s %8ld %8ld", nameWidth, (indent + row.name).c_str(), row.counts.files,
                    row.counts.code);
        if (look.comments) std::printf(" %8ld", row.counts.comments);
        if (look.blanks) std::printf(" %8ld", row.counts.blanks);
        std::printf(" %8ld", row.counts.lines());
        end();
    }

private:
    void begin(Style style) const {
        if (look.colour && style != Style::plain)
            std::fputs(style == Style::strong ? "\033[1m" : "\033[2m", stdout);
    }

    void end() const { std::puts(look.colour ? "\033[0m" : ""); }

    const Look& look;
    int nameWidth;
};

}  // namespace

void printReport(const std::vector<Section>& sections, const Look& look) {
    std::size_t width = 12;
    Row total{"total", {}};
    for (const Section& section : sections) {
        width = std::max(width, section.sum.name.size());
        for (const Row& file : section.files)
            width = std::max(width, file.name.size() + 2);
        total.counts += section.sum.counts;
    }

    const Table table(look, width);
    table.printHeading();
    for (const Section& section : sections) {
        table.print(section.sum, "", section.files.empty() ? Style::plain : Style::strong);
        for (const Row& file : section.files)
            table.print(file, "  ", Style::plain);
    }
    if (sections.size() > 1) table.print(total, "", Style::strong);
}

}  // namespace srcstat
