#include "questions.h"
#include "vorn_peer.h"

namespace bench {
namespace {

Subject registering(const PeerInfo& peer, const std::vector<OptionSpec>& options) {
    return {[&peer, &options] { peer.make(options, Form::full); }, static_cast<double>(options.size())};
}

// Shows whether work was only put off until the first argument.
Subject registeringAndParsing(const std::vector<OptionSpec>& options, CommandLine& line) {
    return {[&options, &line] { vornPeer().make(options, Form::full)->parse(line, nullptr); },
            static_cast<double>(options.size())};
}

}  // namespace

void askRegistration(const Settings& settings, Report& report) {
    std::vector<PeerInfo> peers = {vornPeer()};
    for (const PeerInfo& peer : settings.peers) {
        if (peer.registers) {
            peers.push_back(peer);
        }
    }
    Row header = {"parser"};
    std::vector<Row> rows;
    for (const PeerInfo& peer : peers) {
        rows.push_back({peer.name});
    }
    rows.push_back({"vorn, and a parse of one argument"});
    for (const std::size_t count : settings.optionCounts) {
        header.push_back("N=" + std::to_string(count));
        const std::vector<OptionSpec> options = makeOptions(count);
        CommandLine oneArgument = makeCommandLine(options, 1, Form::prefix);
        std::vector<Subject> subjects;
        for (const PeerInfo& peer : peers) {
            subjects.push_back(registering(peer, options));
        }
        subjects.push_back(registeringAndParsing(options, oneArgument));
        const std::vector<Series> series = measure(subjects, settings.plan);
        std::optional<double> besideBoost;
        for (std::size_t index = 0; index < series.size(); ++index) {
            const double ratio = medianRatio(series[0], series[index]);
            rows[index].push_back(figure(median(series[index])) +
                                  (index == 0 ? "" : " (" + figure(ratio) + ")"));
            if (rows[index][0] == "Boost.Program_options") {
                besideBoost = ratio;
            }
        }
        report.goal("registration, N=" + std::to_string(count) + ": beside Boost.Program_options", 0.5,
                    besideBoost);
    }
    report.heading("Registration");
    report.paragraph(
        "Nanoseconds per option, from making the parser to releasing it, in brackets what vorn takes of it.");
    report.table(header, rows);
}

}  // namespace bench
