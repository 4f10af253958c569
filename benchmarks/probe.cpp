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
// The exit code is 1 when the parser refuses the command line.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "meter.h"
#include "peer.h"

namespace {

using namespace bench;

struct Job {
    Options options;
    CommandLine line;
    Form form;

    std::unique_ptr<Peer> registered() const { return makePeer(options, form); }
    double argumentCount() const { return static_cast<double>(line.texts.size()); }
};

double askFirst(Job& job) {
    const double begun = ownNanoseconds();
    const std::unique_ptr<Peer> peer = job.registered();
    peer->parse(job.line);
    return ownNanoseconds() - begun;
}

double askFresh(Job& job) {
    return medianOf([&] {
        const std::unique_ptr<Peer> peer = job.registered();
        const double begun = nanoseconds();
        peer->parse(job.line);
        return (nanoseconds() - begun) / job.argumentCount();
    });
}

double askWarm(Job& job) {
    const std::unique_ptr<Peer> peer = job.registered();
    peer->parse(job.line);
    return medianTime([&] { peer->parse(job.line); }) / job.argumentCount();
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

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6) return 2;
    const std::string_view formName = argv[4];
    Job job;
    job.form = formName == "full" ? Form::full : formName == "prefix" ? Form::prefix : Form::cut;
    job.options = makeOptions(std::strtoul(argv[2], nullptr, 10));
    job.line = makeCommandLine(job.options, std::strtoul(argv[3], nullptr, 10), job.form, argv[5][0] == '1');
    std::printf("%g\n", ask(argv[1], job));
    return job.registered()->parse(job.line) ? 0 : 1;
}
