#include <iostream>
#include <stdexcept>

#include "questions.h"
#include "vorn_peer.h"

namespace bench {
namespace {

constexpr std::size_t fewOccurrences = 100;
constexpr std::size_t textOption = 2;

// `count` results in each of which one option occurred `occurrences` times, and reading them all. They are
// made afresh for each reading, since the first one keeps every text for the host.
class Occurrences {
public:
    Occurrences(std::size_t resultCount, std::size_t occurrences)
        : options(makeOptions(10)), parser(registerOn(options)), results(resultCount) {
        for (std::size_t index = 0; index < occurrences; ++index) {
            line.texts.push_back(std::string("--") + options[textOption].name + "=build/source-" +
                                 std::to_string(index) + ".txt");
        }
        line.argv.push_back(line.texts.front().data());  // in the program's place, not read
        for (std::string& text : line.texts) {
            line.argv.push_back(text.data());
        }
        line.argv.push_back(nullptr);
    }

    Subject subject() {
        return {[this] { read(); }, static_cast<double>(results.size() * line.texts.size()),
                [this] { parse(); }};
    }

private:
    void parse() {
        for (ResultHandle& result : results) {
            result.reset();
        }
        for (ResultHandle& result : results) {
            result = newResult(*parser);
            parser->parseArgsVector(line.argc(), line.argv.data(), result.get());
        }
    }

    void read() const {
        const char* name = options[textOption].alias;
        std::size_t count = 0;
        for (const ResultHandle& result : results) {
            for (vorn_3_1::Value value = result->get(name); value.status == 0; value = result->next(name)) {
                count += *value.text == 'b';
            }
        }
        if (count != results.size() * line.texts.size()) {
            throw std::runtime_error("not all values were read");
        }
    }

    std::vector<OptionSpec> options;
    CommandLine line;
    ParserHandle parser;
    std::vector<ResultHandle> results;
};

void askQueries(const Settings& settings, Report& report) {
    Occurrences few(settings.many / fewOccurrences, fewOccurrences);
    Occurrences many(1, settings.many);
    const std::vector<Series> series = measure({many.subject(), few.subject()}, settings.plan);
    const double ratio = medianRatio(series[0], series[1]);
    const std::string manyText = std::to_string(settings.many);
    report.heading("Queries");
    report.table(
        {"occurrences", "ns per value"},
        {{std::to_string(fewOccurrences), figure(median(series[1]))}, {manyText, figure(median(series[0]))}});
    report.goal("queries, value of " + manyText + " beside value of " + std::to_string(fewOccurrences) +
                    " (the same, within the noise of memory)",
                1.3, ratio);
    report.goal("queries, one value of " + manyText, 100, median(series[0]), "ns");
}

void askText(const Settings& settings, Report& report) {
    const std::vector<OptionSpec> options = makeOptions(100);
    CommandLine line = makeCommandLine(options, settings.many, Form::full);
    std::string text;
    for (const std::string& argument : line.texts) {
        text.append(argument).append("\n");
    }
    const ParserHandle parser = registerOn(options);
    const ResultHandle checked = newResult(*parser);
    if (parser->parseStream(text.c_str(), checked.get()) != 0 ||
        readAll(*checked, options) != line.everything) {
        throw std::runtime_error("parseStream gives a wrong result");
    }
    const auto parseText = [&] { parser->parseStream(text.c_str(), newResult(*parser).get()); };
    const auto parseVector = [&] {
        parser->parseArgsVector(line.argc(), line.argv.data(), newResult(*parser).get());
    };
    const double count = static_cast<double>(settings.many);
    const std::vector<Series> series = measure({{parseText, count}, {parseVector, count}}, settings.plan);
    const std::string countText = std::to_string(settings.many);
    report.heading("A text of " + countText + " lines (N=100)");
    report.table({"entry", "ns per argument"}, {{"parseStream", figure(median(series[0]))},
                                                {"parseArgsVector", figure(median(series[1]))}});
    report.goal("parseStream of " + countText + " lines: beside the argument vector", 1.5,
                medianRatio(series[0], series[1]));
}

}  // namespace

void askReading(const Settings& settings, Report& report) {
    askQueries(settings, report);
    askText(settings, report);
}

}  // namespace bench
