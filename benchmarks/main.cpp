// Runs the library beside other parsers, checks every result before any time is taken, and writes tables in
// Markdown with the goals and what was measured.
//
// For counts of instructions that can be compared from one change to the next:
//
//     valgrind --tool=callgrind --collect-atstart=no --toggle-collect=benchParseOnce
//         vorn_bench --once 100 1000 full 5
//
// registers 100 options and parses 1000 arguments with full names 5 times (once when nothing is given), off
// the clock; only parsing and the life of its result are counted. The first parse of a parser may do work
// that the later ones find done.
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <stdexcept>

#include "build.h"
#include "questions.h"
#include "vorn_peer.h"

extern "C" __attribute__((noinline)) void benchParseOnce(bench::Peer& peer, bench::CommandLine& line) {
    if (!peer.parse(line, nullptr)) {
        throw std::runtime_error("the command line was refused");
    }
}

namespace bench {
namespace {

ParserHandle makeOwnParser() {
    vorn_3_1::IParser* made = nullptr;
    vorn_3_1::createParser(&made, vorn_3_1::unknownIsError);
    ParserHandle parser(made);
    const char* cells = "cells:Which cells are measured (all, unless given)";
    parser->option("options,n", "Numbers of options.", tamsu2::qel_uint, cells);
    parser->option("arguments,m", "Numbers of arguments.", tamsu2::qel_uint, cells);
    parser->option("forms,f", "How names are typed.", tamsu2::qel_string, cells)
        ->allowValue("full")
        ->allowValue("prefix")
        ->allowValue("cut");
    parser->option("peers,p", "Parsers beside us, by their names in the tables.", tamsu2::qel_string, cells);
    const char* runs = "runs:Kinds of runs";
    parser->option("questions,q", "What to look at.", tamsu2::qel_string, runs)
        ->allowValue("parsing")
        ->allowValue("registration")
        ->allowValue("growth")
        ->allowValue("reading")
        ->allowValue("heap")
        ->allowValue("small-things");
    parser->option("quick", "Only shows that everything works.", tamsu2::qel_bool, runs);
    parser->option("once", "Parses off the clock: options, arguments, form, and how often.", tamsu2::qel_bool,
                   runs);
    parser->option("help,h", "This text.", tamsu2::qel_empty, runs);
    parser->option("cell", "", tamsu2::qel_string, runs)->tokenize('\0')->positional();
    return parser;
}

std::vector<std::string> textsOf(vorn_3_1::IParseResult& result, const char* name) {
    std::vector<std::string> texts;
    for (vorn_3_1::Value value = result.get(name); value.status == 0; value = result.next(name)) {
        texts.emplace_back(value.text);
    }
    return texts;
}

bool chosen(const std::vector<std::string>& choice, const std::string& name) {
    return choice.empty() || std::find(choice.begin(), choice.end(), name) != choice.end();
}

std::vector<std::size_t> countsOf(vorn_3_1::IParseResult& result, const char* name,
                                  const std::vector<std::size_t>& otherwise) {
    std::vector<std::size_t> counts;
    for (const std::string& text : textsOf(result, name)) {
        counts.push_back(std::stoul(text));
    }
    std::sort(counts.begin(), counts.end());
    return counts.empty() ? otherwise : counts;
}

Settings settingsFrom(vorn_3_1::IParseResult& result) {
    Settings settings = {{10, 100, 1000}, {10, 1000, 100000}, {}, {}, 1000, 100000, 10000, {21, 2e6, 4e8}};
    if (result.present("quick")) {
        settings = {{10, 100}, {10, 200}, {}, {}, 100, 1000, 500, {1, 0, 0}};
    }
    settings.optionCounts = countsOf(result, "options", settings.optionCounts);
    settings.argumentCounts = countsOf(result, "arguments", settings.argumentCounts);
    const std::vector<std::string> forms = textsOf(result, "forms");
    std::copy_if(std::begin(allForms), std::end(allForms), std::back_inserter(settings.forms),
                 [&](Form form) { return chosen(forms, formName(form)); });
    const std::vector<std::string> peers = textsOf(result, "peers");
    for (const PeerInfo& peer : installedPeers()) {
        if (chosen(peers, peer.name)) {
            settings.peers.push_back(peer);
        }
    }
    return settings;
}

std::string today() {
    const std::time_t now = std::time(nullptr);
    char text[sizeof "2000-01-01"];
    std::strftime(text, sizeof text, "%Y-%m-%d", std::gmtime(&now));
    return text;
}

void writeHead(Report& report) {
#ifdef __clang__
    const std::string compiler = "clang ";
#else
    const std::string compiler = "g++ ";
#endif
    report.paragraph(today() + ", " + std::to_string(8 * sizeof(void*)) + " bit, " + compiler + __VERSION__ +
                     ", " + BENCH_FLAGS + ".");
    std::string missing;
    for (const char* name : missingPeers()) {
        missing.append(missing.empty() ? "" : ", ").append(name);
    }
    if (!missing.empty()) {
        report.paragraph("Left out, not installed for this width: " + missing + ".");
    }
    if (!BENCH_OPTIMIZED || BENCH_SANITIZED) {
        report.paragraph("**Built without optimisation or with a sanitizer: the figures mean nothing.**");
    }
}

int parseOnce(const std::vector<std::string>& cell) {
    if (cell.size() < 3) {
        throw std::runtime_error("--once wants the numbers of options and arguments, and a form");
    }
    const auto* form = std::find_if(std::begin(allForms), std::end(allForms),
                                    [&](Form candidate) { return cell[2] == formName(candidate); });
    if (form == std::end(allForms)) {
        throw std::runtime_error("there is no form " + cell[2]);
    }
    const std::vector<OptionSpec> options = makeOptions(std::stoul(cell[0]));
    CommandLine line = makeCommandLine(options, std::stoul(cell[1]), *form);
    const std::unique_ptr<Peer> peer = vornPeer().make(options, *form);
    const unsigned long times = cell.size() > 3 ? std::stoul(cell[3]) : 1;
    for (unsigned long time = 0; time < times; ++time) {
        benchParseOnce(*peer, line);
    }
    return EXIT_SUCCESS;
}

int answerQuestions(vorn_3_1::IParseResult& result) {
    struct Question {
        const char* name;
        void (*ask)(const Settings&, Report&);
    };
    constexpr Question questions[] = {{"parsing", askParsing}, {"registration", askRegistration},
                                      {"growth", askGrowth},   {"reading", askReading},
                                      {"heap", askHeap},       {"small-things", askSmallThings}};
    const Settings settings = settingsFrom(result);
    const std::vector<std::string> choice = textsOf(result, "questions");
    Report report(std::cout);
    writeHead(report);
    for (const Question& question : questions) {
        if (chosen(choice, question.name)) {
            question.ask(settings, report);
        }
    }
    if (result.present("quick")) {
        report.paragraph("A quick run: the figures mean nothing.");
    } else {
        report.goals();
    }
    return EXIT_SUCCESS;
}

int run(int argc, char** argv) {
    const ParserHandle parser = makeOwnParser();
    const ResultHandle result = newResult(*parser);
    if (parser->parseArgsVector(argc, argv, result.get()) != 0) {
        throw std::runtime_error(parser->getErrorDesc());
    }
    if (result->present("help")) {
        std::cout << parser->getDescription();
        return EXIT_SUCCESS;
    }
    return result->present("once") ? parseOnce(textsOf(*result, "cell")) : answerQuestions(*result);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    try {
        return bench::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "vorn_bench: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
