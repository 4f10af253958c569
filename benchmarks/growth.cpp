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
}

}  // namespace bench
