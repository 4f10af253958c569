// Questions that are asked of this library alone, each in a process of its own: bench_own QUESTION COUNT. It prints one
// figure.
#include <malloc.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "clock.h"
#include "collisions.h"
#include "heap.h"
#include "vorn_peer.h"

namespace {

using namespace bench;
using vorn_3_1::IParser;

template <class Run>
double timeOf(Run run) {
    const double begun = ownNanoseconds();
    run();
    return ownNanoseconds() - begun;
}

void mustBe(bool right, const char* what) {
    if (right) return;
    std::fprintf(stderr, "bench_own: %s\n", what);
    std::exit(1);
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append("\n");
    return text;
}

void parseText(IParser& parser, const std::string& text) {
    mustBe(parser.parseStream(text.c_str(), newResult(parser).get()) == 0, "the text is refused");
}

// Nanoseconds a value: reading all of one option that occurred `count` times, in as many results as make 100000.
double askQueries(std::size_t count) {
    const ParserHandle parser = newParser();
    parser->option("input,i", "", tamsu2::qel_string, "bench");
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < count; ++i)
        lines.push_back("--input=build/source-" + std::to_string(i) + ".txt");
    const std::string text = joined(lines);
    std::vector<ResultHandle> results(100000 / count);
    return medianOf([&] {
               for (ResultHandle& result : results)
                   result.reset();
               for (ResultHandle& result : results) {
                   result = newResult(*parser);
                   parser->parseStream(text.c_str(), result.get());
               }
               std::size_t found = 0;
               const double time = timeOf([&] {
                   for (const ResultHandle& result : results)
                       for (vorn_3_1::Value value = result->get("i"); value.status == 0;
                            value = result->next("i"))
                           found += *value.text == 'b';
               });
               mustBe(found == results.size() * count, "not all values were read");
               return time;
           }) /
           static_cast<double>(results.size() * count);
}

// Nanoseconds an argument, of a text with so many lines.
double askStream(std::size_t count) {
    const std::vector<OptionSpec> options = makeOptions(100);
    const ParserHandle parser = registerOn(options);
    const std::string text = joined(makeCommandLine(options, count, Form::full).texts);
    return medianTime([&] { parseText(*parser, text); }) / static_cast<double>(count);
}

std::size_t heapBytes() {
    const auto now = mallinfo2();
    return now.uordblks + now.hblkhd;
}

struct Kept {
    double callsPerArgument;
    double share;  ///< What the result's end gives back, beside what a host is given once.
};

Kept keptAfter(std::size_t count) {
    const std::vector<OptionSpec> options = makeOptions(100);
    const ParserHandle parser = registerOn(options);
    CommandLine line = makeCommandLine(options, count, Form::full);
    const std::size_t callsBefore = heapCalls;
    ResultHandle result = newResult(*parser);
    parser->parseArgsVector(line.argc(), line.argv.data(), result.get());
    const std::size_t calls = heapCalls - callsBefore, bytes = heapBytes();
    result.reset();
    // A record and a text for each value, a position for each occurrence.
    const std::size_t given =
        line.items * sizeof(vorn_3_1::Value) + line.itemBytes + count * sizeof(std::int32_t);
    return {static_cast<double>(calls) / static_cast<double>(count),
            static_cast<double>(bytes - heapBytes()) / static_cast<double>(given)};
}

// Milliseconds for the help text of so many options. A new parser each time, since equal texts may be kept.
double askHelp(std::size_t count) {
    const std::vector<OptionSpec> options = makeOptions(count);
    return medianOf([&] {
               const ParserHandle parser = registerOn(options);
               return timeOf([&] { parser->getDescription(); });
           }) /
           1e6;
}

class CountsValues : public vorn_3_1::EventHandler {
public:
    bool onValueParse(const char*, const vorn_3_1::Value&) override { return ++count != 0; }
    std::size_t count = 0;
};

// Milliseconds for so many texts that are all different, where they become ...
double timeOfValues(const std::vector<std::string>& texts) {
    const ParserHandle parser = newParser();
    parser->option("input", "", tamsu2::qel_string, "bench")->tokenize('\0')->positional();
    const std::string text = joined(texts);
    const ResultHandle result = newResult(*parser);
    return timeOf([&] {
        mustBe(parser->parseStream(text.c_str(), result.get()) == 0, "the values are refused");
        for (vorn_3_1::Value value = result->get("input"); value.status == 0; value = result->next("input")) {
        }
    });
}

double timeOfEvents(const std::vector<std::string>& texts) {
    CountsValues handler;
    const ParserHandle parser = newParser();
    parser->option("input", "", tamsu2::qel_string, "bench")->tokenize('\0')->positional();
    parser->addHandler(&handler);
    const std::string text = joined(texts);
    const double time = timeOf([&] { parseText(*parser, text); });
    mustBe(handler.count == texts.size(), "not all values were events");
    return time;
}

double timeOfPassThrough(const std::vector<std::string>& texts) {
    const ParserHandle parser = newParser();
    const std::string text = "--\n" + joined(texts);
    const ResultHandle result = newResult(*parser);
    return timeOf([&] {
        parser->parseStream(text.c_str(), result.get());
        const char* argument = nullptr;
        for (int code = result->getFirstArgument(&argument); code == 0;
             code = result->getNextArgument(&argument)) {
        }
    });
}

double timeOfNames(const std::vector<std::string>& texts) {
    const ParserHandle parser = newParser();
    return timeOf([&] {
        for (const std::string& text : texts)
            parser->option(text.c_str(), "", tamsu2::qel_string, "bench");
    });
}

using TimeOfTexts = double (*)(const std::vector<std::string>&);
constexpr TimeOfTexts placesOfTexts[] = {timeOfValues, timeOfEvents, timeOfPassThrough, timeOfNames};

// How much longer that takes with texts that collide in the standard library's hash than with random ones; the worst
// place. Both take turns, and a run that takes a hundred times as long is enough.
double askCollisions(std::size_t count) {
    const std::vector<std::string> random = randomTexts(count), colliding = collidingTexts(count);
    double worst = 0;
    for (const TimeOfTexts time : placesOfTexts) {
        time(random);
        worst = std::max(worst, medianOf([&] { return time(colliding) / time(random); }));
    }
    return worst;
}

// Nanoseconds for "-w-q" with so many options named "w0-x0", "w1-x1", ..., none of which fits.
double askNearNames(std::size_t count) {
    vorn_3_1::IParser* made = nullptr;
    vorn_3_1::createParser(&made);
    const ParserHandle parser(made);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        parser->option(("w" + number + "-x" + number).c_str(), "", tamsu2::qel_bool, "bench");
    }
    return medianTime([&] { parser->parseStream("-w-q\n", nullptr); });
}

// Milliseconds for registering so many names in descending order, with an abbreviated parse behind each.
double askDescending(std::size_t count) {
    return medianOf([&] {
               const ParserHandle parser = newParser();
               return timeOf([&] {
                   for (std::size_t i = count; i > 0; --i) {
                       char name[32];
                       std::snprintf(name, sizeof name, "name%08zu-word", i);
                       parser->option(name, "", tamsu2::qel_bool, "bench");
                       name[sizeof "name00000000-wo" - 1] = '\0';
                       mustBe(parser->parseStream((std::string("--") + name + "\n").c_str(), nullptr) == 0,
                              "a name is refused");
                   }
               });
           }) /
           1e6;
}

// How many times its size one argument of so many hyphens takes, beside the argument itself.
double askHyphens(std::size_t count) {
    const ParserHandle parser = registerOn(makeOptions(10));
    std::string program = "bench", argument(count, '-');
    char* argv[] = {program.data(), argument.data(), nullptr};
    const ResultHandle result = newResult(*parser);
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    parser->parseArgsVector(2, argv, result.get());
    getrusage(RUSAGE_SELF, &after);
    return static_cast<double>(after.ru_maxrss - before.ru_maxrss) * 1024 / static_cast<double>(count);
}

}  // namespace

int main(int argc, char** argv) {
    const std::map<std::string, double (*)(std::size_t)> questions = {
        {"queries", askQueries},
        {"stream", askStream},
        {"heap-calls", [](std::size_t count) { return keptAfter(count).callsPerArgument; }},
        {"heap-share", [](std::size_t count) { return keptAfter(count).share; }},
        {"help", askHelp},
        {"collisions", askCollisions},
        {"near-names", askNearNames},
        {"descending", askDescending},
        {"hyphens", askHyphens},
    };
    const auto question = argc == 3 ? questions.find(argv[1]) : questions.end();
    if (question == questions.end()) return 2;
    std::printf("%g\n", question->second(std::strtoul(argv[2], nullptr, 10)));
}
