#include <algorithm>
#include <iostream>
#include <map>
#include <stdexcept>

#include "questions.h"
#include "vorn_peer.h"

namespace bench {
namespace {

constexpr double longestParseNs = 1.2e9;  // a peer that would take longer than this is left out

struct Candidate {
    std::string label;
    PeerInfo info;
    Form form;
};

struct Outcome {
    double nsPerArgument;
    double ourRatio;  ///< Ours divided by the candidate's.
};

struct Cell {
    std::size_t optionCount, argumentCount;
    friend auto operator<=>(const Cell&, const Cell&) = default;
};

// Candidates by label, of which the first is the one that the others are compared with.
using Outcomes = std::map<Cell, std::map<std::string, Outcome>>;

// A peer with options and a command line of its own, since some peers reorder the vector.
struct Runner {
    Runner(const Candidate& candidate, const std::vector<OptionSpec>& options, std::size_t argumentCount)
        : label(candidate.label),
          keepsAll(candidate.info.keepsAll),
          line(makeCommandLine(options, argumentCount, candidate.form)),
          peer(candidate.info.make(options, candidate.form)) {}

    bool isRight() {
        Tally found;
        return peer->parse(line, &found) && found == (keepsAll ? line.everything : line.lastOnly);
    }

    std::string label;
    bool keepsAll;
    CommandLine line;
    std::unique_ptr<Peer> peer;
};

std::vector<Candidate> candidatesFor(Form form, const Settings& settings) {
    std::vector<Candidate> candidates = {{"vorn", vornPeer(), form}};
    if (form == Form::everyWordCut) {
        candidates.push_back({"vorn, prefix names", vornPeer(), Form::prefix});
        return candidates;
    }
    for (const PeerInfo& peer : settings.peers) {
        if (form == Form::full || peer.takesPrefixes) {
            candidates.push_back({peer.name, peer, form});
        }
    }
    return candidates;
}

bool isTooSlow(const Candidate& candidate, const Cell& cell, const Outcomes& known) {
    const auto smaller = std::find_if(known.rbegin(), known.rend(), [&](const auto& entry) {
        return entry.first.optionCount == cell.optionCount && entry.second.contains(candidate.label);
    });
    return cell.argumentCount > candidate.info.mostArguments ||
           (smaller != known.rend() &&
            smaller->second.at(candidate.label).nsPerArgument * static_cast<double>(cell.argumentCount) >
                longestParseNs);
}

std::vector<std::unique_ptr<Runner>> runnersFor(const std::vector<Candidate>& candidates, const Cell& cell,
                                                const std::vector<OptionSpec>& options,
                                                const Outcomes& known) {
    std::vector<std::unique_ptr<Runner>> runners;
    for (const Candidate& candidate : candidates) {
        if (isTooSlow(candidate, cell, known)) {
            continue;
        }
        auto runner = std::make_unique<Runner>(candidate, options, cell.argumentCount);
        if (runner->isRight()) {
            runners.push_back(std::move(runner));
        } else if (runners.empty()) {
            throw std::runtime_error("vorn gives a wrong result");
        } else {
            std::cerr << "left out, wrong result: " << candidate.label << '\n';
        }
    }
    return runners;
}

std::map<std::string, Outcome> measureCell(const std::vector<std::unique_ptr<Runner>>& runners,
                                           const Plan& plan) {
    std::vector<Subject> subjects;
    for (const std::unique_ptr<Runner>& runner : runners) {
        subjects.push_back({[&runner] { runner->peer->parse(runner->line, nullptr); },
                            static_cast<double>(runner->line.texts.size())});
    }
    const std::vector<Series> series = measure(subjects, plan);
    std::map<std::string, Outcome> outcomes;
    for (std::size_t index = 0; index < runners.size(); ++index) {
        outcomes[runners[index]->label] = {median(series[index]), medianRatio(series[0], series[index])};
    }
    return outcomes;
}

std::string cellText(const std::map<std::string, Outcome>& outcomes, const std::string& label) {
    const auto found = outcomes.find(label);
    if (found == outcomes.end()) {
        return "-";
    }
    const std::string ratio = label == "vorn" ? "" : " (" + figure(found->second.ourRatio) + ")";
    return figure(found->second.nsPerArgument) + ratio;
}

void writeTable(Form form, const std::vector<Candidate>& candidates, const Outcomes& outcomes,
                Report& report) {
    report.heading(std::string("Parsing, names typed: ") + formName(form));
    report.paragraph(
        "Nanoseconds per argument, in brackets what vorn takes of it, for N options and M arguments.");
    Row header = {"parser", "keeps"};
    for (const auto& [cell, unused] : outcomes) {
        header.push_back("N=" + std::to_string(cell.optionCount) +
                         " M=" + std::to_string(cell.argumentCount));
    }
    std::vector<Row> rows;
    for (const Candidate& candidate : candidates) {
        Row& row = rows.emplace_back(Row{candidate.label, candidate.info.keeps});
        for (const auto& [cell, byLabel] : outcomes) {
            row.push_back(cellText(byLabel, candidate.label));
        }
    }
    report.table(header, rows);
}

std::optional<double> ratioIn(const Outcomes& outcomes, const Cell& cell, const std::string& label) {
    const auto found = outcomes.find(cell);
    if (found == outcomes.end() || !found->second.contains(label)) {
        return std::nullopt;
    }
    return found->second.at(label).ourRatio;
}

std::optional<double> worstRatio(const Outcomes& outcomes, const std::string& label) {
    std::optional<double> worst;
    for (const auto& [cell, byLabel] : outcomes) {
        const std::optional<double> ratio = ratioIn(outcomes, cell, label);
        worst = ratio && (!worst || *ratio > *worst) ? ratio : worst;
    }
    return worst;
}

void noteGoals(Form form, const Outcomes& outcomes, Report& report) {
    const auto beside = [&](const std::string& label, std::size_t optionCount, double bound) {
        report.goal(std::string("parsing, ") + formName(form) + " names, N=" + std::to_string(optionCount) +
                        ", M=1000: beside " + label,
                    bound, ratioIn(outcomes, {optionCount, 1000}, label));
    };
    switch (form) {
        case Form::full:
            beside("getopt_long", 10, 3);
            beside("getopt_long", 100, 1);
            beside("getopt_long", 1000, 0.2);
            report.goal("parsing, full names, worst cell: beside cxxopts without regex", 0.5,
                        worstRatio(outcomes, "cxxopts without regex"));
            break;
        case Form::prefix:
            beside("getopt_long", 100, 0.4);
            beside("getopt_long", 1000, 0.06);
            break;
        case Form::everyWordCut:
            report.goal("parsing, every word cut, worst cell: beside prefix names", 1.5,
                        worstRatio(outcomes, "vorn, prefix names"));
            break;
    }
}

}  // namespace

void askParsing(const Settings& settings, Report& report) {
    for (const Form form : settings.forms) {
        const std::vector<Candidate> candidates = candidatesFor(form, settings);
        Outcomes outcomes;
        for (const std::size_t optionCount : settings.optionCounts) {
            const std::vector<OptionSpec> options = makeOptions(optionCount);
            for (const std::size_t argumentCount : settings.argumentCounts) {
                const Cell cell = {optionCount, argumentCount};
                outcomes[cell] = measureCell(runnersFor(candidates, cell, options, outcomes), settings.plan);
            }
        }
        writeTable(form, candidates, outcomes, report);
        noteGoals(form, outcomes, report);
    }
}

}  // namespace bench
