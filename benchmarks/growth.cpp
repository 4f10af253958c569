#include <memory>

#include "questions.h"
#include "vorn_peer.h"

namespace bench {
namespace {

// One end of a comparison: parsing `argumentCount` arguments with `optionCount` options registered.
class End {
public:
    End(std::size_t optionCount, std::size_t argumentCount)
        : options(makeOptions(optionCount)),
          line(makeCommandLine(options, argumentCount, Form::full)),
          peer(vornPeer().make(options, Form::full)) {}

    Subject subject() {
        return {[this] { peer->parse(line, nullptr); }, static_cast<double>(line.texts.size())};
    }

private:
    std::vector<OptionSpec> options;
    CommandLine line;
    std::unique_ptr<Peer> peer;
};

class Growth {
public:
    Growth(const Settings& usedSettings, Report& usedReport) : settings(usedSettings), report(usedReport) {}

    void add(const std::string& text, double bound, const Subject& small, const Subject& large) {
        const std::vector<Series> series = measure({large, small}, settings.plan);
        const double ratio = medianRatio(series[0], series[1]);
        rows.push_back({text, figure(median(series[1])), figure(median(series[0])), figure(ratio)});
        report.goal("growth, " + text, bound, ratio);
    }

    void write() {
        report.heading("Growth");
        report.table({"per", "ns at the small end", "ns at the large end", "ratio"}, rows);
    }

private:
    const Settings& settings;
    Report& report;
    std::vector<Row> rows;
};

std::string span(const char* letter, std::size_t from, std::size_t to) {
    return std::string(letter) + "=" + std::to_string(from) + " to " + std::to_string(to);
}

// Whether all cost the same whatever their number: four sizes, each twice the one before it.
template <class MakeSubject>
void writeDoubling(const Settings& settings, Report& report, const std::string& what, std::size_t most,
                   MakeSubject makeSubject) {
    std::vector<Subject> subjects;
    for (std::size_t part = 8; part > 0; part /= 2)
        subjects.push_back(makeSubject(most / part));
    const std::vector<Series> series = measure(subjects, settings.plan);
    std::vector<Row> rows;
    for (std::size_t i = 0; i < subjects.size(); ++i) {
        const double each = median(series[i]);
        rows.push_back({figure(subjects[i].units), figure(each), figure(each * subjects[i].units / 1e6)});
    }
    report.table({what, "ns each", "ms in all"}, rows);
}

}  // namespace

void askGrowth(const Settings& settings, Report& report) {
    Growth growth(settings, report);
    const std::size_t fewest = settings.optionCounts.front();
    const std::size_t most = settings.optionCounts.back();
    End fewOptions(fewest, settings.few);
    End manyOptions(most, settings.few);
    growth.add("argument, " + span("N", fewest, most) + ", M=" + std::to_string(settings.few), 2,
               fewOptions.subject(), manyOptions.subject());
    for (const std::size_t count : settings.optionCounts) {
        End fewArguments(count, settings.few);
        End manyArguments(count, settings.many);
        growth.add("argument, N=" + std::to_string(count) + ", " + span("M", settings.few, settings.many),
                   1.3, fewArguments.subject(), manyArguments.subject());
    }
    const std::vector<OptionSpec> small = makeOptions(fewest);
    const std::vector<OptionSpec> large = makeOptions(settings.manyOptions);
    growth.add("registered option, " + span("N", fewest, settings.manyOptions), 1.5,
               {[&] { registerOn(small); }, static_cast<double>(small.size())},
               {[&] { registerOn(large); }, static_cast<double>(large.size())});
    growth.write();

    std::vector<std::unique_ptr<End>> ends;
    writeDoubling(settings, report, "arguments (N=" + std::to_string(fewest) + ")", 2 * settings.many,
                  [&](std::size_t count) {
                      ends.push_back(std::make_unique<End>(fewest, count));
                      return ends.back()->subject();
                  });
    std::vector<std::unique_ptr<std::vector<OptionSpec>>> lists;
    writeDoubling(settings, report, "options", 2 * settings.manyOptions, [&](std::size_t count) {
        lists.push_back(std::make_unique<std::vector<OptionSpec>>(makeOptions(count)));
        return Subject{[list = lists.back().get()] { registerOn(*list); }, static_cast<double>(count)};
    });
}

}  // namespace bench
