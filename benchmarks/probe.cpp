// One question asked of one parser, in a process of its own:
//
//     bench_PARSER QUESTION N M FORM POINTS
//
// N options, M arguments; FORM is full, prefix or cut; POINTS is 1 where numbers have a decimal point. It prints one
// figure:
//     first      nanoseconds for registering and parsing, as the first thing in the process
//     fresh      nanoseconds an argument, each parse with a parser of its own (its registration is not counted)
//     warm       nanoseconds an argument, one parser for many parses
//     register   nanoseconds an option, from making the parser to releasing it
//     heap       heap calls an option, for registering
// The exit code is 1 when the parser has not found what stands on the command line.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "clock.h"
#include "heap.h"
#include "peer.h"

namespace {

using namespace bench;

struct Job {
    std::vector<OptionSpec> options;
    CommandLine line;
    Form form;

    std::unique_ptr<Peer> registered() const { return makePeer(options, form); }
    double argumentCount() const { return static_cast<double>(line.texts.size()); }
};

double askFirst(Job& job) {
    const double begun = ownNanoseconds();
    const std::unique_ptr<Peer> peer = job.registered();
    peer->parse(job.line, nullptr);
    return ownNanoseconds() - begun;
}

double askFresh(Job& job) {
    return medianOf([&] {
        const std::unique_ptr<Peer> peer = job.registered();
        const double begun = nanoseconds();
        peer->parse(job.line, nullptr);
        return (nanoseconds() - begun) / job.argumentCount();
    });
}

double askWarm(Job& job) {
    const std::unique_ptr<Peer> peer = job.registered();
    peer->parse(job.line, nullptr);
    return medianTime([&] { peer->parse(job.line, nullptr); }) / job.argumentCount();
}

double askRegister(const Job& job) {
    return medianTime([&] { job.registered(); }) / static_cast<double>(job.options.size());
}

double askHeap(const Job& job) {
    const std::size_t before = heapCalls;
    const std::unique_ptr<Peer> peer = job.registered();
    return static_cast<double>(heapCalls - before) / static_cast<double>(job.options.size());
}

double ask(std::string_view question, Job& job) {
    if (question == "first") return askFirst(job);
    if (question == "fresh") return askFresh(job);
    if (question == "warm") return askWarm(job);
    if (question == "register") return askRegister(job);
    return askHeap(job);
}

bool isRight(Job& job) {
    Tally found;
    return job.registered()->parse(job.line, &found) &&
           found == (keepsAllValues ? job.line.everything : job.line.lastOnly);
}

}  // namespace

bench::Tally bench::tallyOf(const std::vector<OptionSpec>& options, const std::vector<Slot>& slots) {
    Tally tally;
    for (std::size_t index = 0; index < options.size(); ++index) {
        const Slot& slot = slots[index];
        tally.switches += slot.onOff;
        if (slot.integer != 0) tally.add(slot.integer);
        if (slot.number != 0) tally.add(slot.number);
        if (slot.text.empty()) continue;
        if (options[index].kind == Kind::list)
            tally.addList(slot.text);
        else
            tally.add(slot.text);
    }
    return tally;
}

int main(int argc, char** argv) {
    if (argc != 6) return 2;
    const std::string_view formName = argv[4];
    Job job;
    job.form = formName == "full" ? Form::full : formName == "prefix" ? Form::prefix : Form::cut;
    job.options = makeOptions(std::strtoul(argv[2], nullptr, 10));
    job.line = makeCommandLine(job.options, std::strtoul(argv[3], nullptr, 10), job.form, argv[5][0] == '1');
    std::printf("%g\n", ask(argv[1], job));
    return isRight(job) ? 0 : 1;
}
