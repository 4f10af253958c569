#include <cstdint>

#include "heap.h"
#include "questions.h"
#include "vorn_peer.h"

namespace bench {
namespace {

// What a host is given, once: a record and a text for each value, a position for each occurrence. Names
// beside the first one get nothing of their own in this sum.
double recordBytes(const CommandLine& line) {
    return static_cast<double>(line.items * sizeof(vorn_3_1::Value) + line.itemBytes +
                               line.texts.size() * sizeof(std::int32_t));
}

}  // namespace

void askHeap(const Settings& settings, Report& report) {
    report.heading("Heap (N=100, two names each)");
    if (!heapIsCounted()) {
        report.paragraph("Not counted: a sanitizer has taken malloc.");
        return;
    }
    std::vector<Row> rows;
    for (const std::size_t count : {settings.few, settings.many}) {
        const std::vector<OptionSpec> options = makeOptions(100);
        CommandLine line = makeCommandLine(options, count, Form::full);
        const ParserHandle parser = registerOn(options);
        startHeapCount();
        ResultHandle result = newResult(*parser);
        parser->parseArgsVector(line.argc(), line.argv.data(), result.get());
        const HeapUse use = stopHeapCount();
        startHeapCount();
        result.reset();
        const HeapUse release = stopHeapCount();
        const double arguments = static_cast<double>(count);
        const double allocations = static_cast<double>(use.allocations) / arguments;
        const double live = -static_cast<double>(release.liveBytes);
        const double share = live / recordBytes(line);
        const std::string text = "M=" + std::to_string(count);
        rows.push_back({text, figure(allocations), figure(live / arguments),
                        figure(recordBytes(line) / arguments), figure(share)});
        report.goal("heap, allocations per argument, " + text, 3, allocations, "");
        report.goal("heap, bytes kept beside bytes of the records, " + text, 2, share);
    }
    report.paragraph(
        "The first parse of a new parser into a new result, and what the result's end gives back, as the "
        "heap rounds it.");
    report.table(
        {"arguments", "allocations per argument", "bytes kept per argument", "of its records", "ratio"},
        rows);
}

}  // namespace bench
