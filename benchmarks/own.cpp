// Questions that are asked of this library alone, each in a process of its own: bench_own QUESTION COUNT. It prints one
// figure.
#include <malloc.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

#include "collisions.h"
#include "meter.h"
#include "vorn_peer.h"

namespace {

using namespace bench;
using vorn_3_1::IParser;
using Texts = std::vector<std::string>;

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

std::string joined(const Texts& lines) {
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append("\n");
    return text;
}

void parseText(IParser& parser, const std::string& text, vorn_3_1::IParseResult* result) {
    mustBe(parser.parseStream(text.c_str(), result) == 0, "a text is refused");
}

std::size_t readAll(vorn_3_1::IParseResult& result, const char* name) {
    std::size_t count = 0;
    for (vorn_3_1::Value value = result.get(name); value.status == 0; value = result.next(name))
        ++count;
    return count;
}

// Nanoseconds a value: reading all of one option that occurred `count` times, in as many results as make 100000.
double askQueries(std::size_t count) {
    const ParserHandle parser = newParser();
    parser->option("input,i", "", tamsu2::qel_string, "bench");
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += "--input=build/source-" + std::to_string(i) + ".txt\n";
    std::vector<ResultHandle> results(100000 / count);
    const auto readAllResults = [&] {
        for (const ResultHandle& result : results)
            mustBe(readAll(*result, "i") == count, "not all values were read");
    };
    const double time = medianOf([&] {
        for (ResultHandle& result : results)
            result.reset();
        for (ResultHandle& result : results)
            parseText(*parser, text, (result = newResult(*parser)).get());
        return timeOf(readAllResults);
    });
    return time / static_cast<double>(results.size() * count);
}

// Nanoseconds an argument, of a text with so many lines.
double askStream(std::size_t count) {
    const Options options = makeOptions(100);
    const ParserHandle parser = registerOn(options);
    const std::string text = joined(makeCommandLine(options, count, Form::full).texts);
    const auto parse = [&] { parseText(*parser, text, newResult(*parser).get()); };
    return medianTime(parse) / static_cast<double>(count);
}

std::size_t heapBytes() {
    const auto now = mallinfo2();
    return now.uordblks + now.hblkhd;
}

// Heap calls an argument; or what the result's end gives back, beside what a host is given once.
double askHeap(std::size_t count, bool calls) {
    const Options options = makeOptions(100);
    const ParserHandle parser = registerOn(options);
    CommandLine line = makeCommandLine(options, count, Form::full);
    const std::size_t callsBefore = heapCalls;
    ResultHandle result = newResult(*parser);
    parser->parseArgsVector(line.argc(), line.argv.data(), result.get());
    if (calls) return static_cast<double>(heapCalls - callsBefore) / static_cast<double>(count);
    const std::size_t bytes = heapBytes();
    result.reset();
    // A record and a text for each value, a position for each occurrence.
    const std::size_t given =
        line.items * sizeof(vorn_3_1::Value) + line.itemBytes + count * sizeof(std::int32_t);
    return static_cast<double>(bytes - heapBytes()) / static_cast<double>(given);
}

// Milliseconds for the help text of so many options. A new parser each time, since equal texts may be kept.
double askHelp(std::size_t count) {
    const Options options = makeOptions(count);
    const auto sample = [&] {
        const ParserHandle parser = registerOn(options);
        return timeOf([&] { parser->getDescription(); });
    };
    return medianOf(sample) / 1e6;
}

// Nanoseconds for texts that are all different, where they become values, values in events, arguments behind "--", and
// names.
enum class Place { values, events, behindTerminator, names };

double timeOfTexts(Place place, const Texts& texts) {
    const ParserHandle parser = newParser();
    if (place == Place::names)
        return timeOf([&] {
            for (const std::string& text : texts)
                parser->option(text.c_str(), "", tamsu2::qel_string, "bench");
        });
    parser->option("input", "", tamsu2::qel_string, "bench")->tokenize('\0')->positional();
    vorn_3_1::EventHandler handler;
    if (place == Place::events) parser->addHandler(&handler);
    const std::string text = (place == Place::behindTerminator ? "--\n" : "") + joined(texts);
    const ResultHandle result = newResult(*parser);
    return timeOf([&] {
        parseText(*parser, text, result.get());
        if (place == Place::values) mustBe(readAll(*result, "input") == texts.size(), "not all were read");
    });
}

// How much longer that takes with texts that collide in the standard library's hash than with random ones; the worst
// place. Both take turns.
double askCollisions(std::size_t count) {
    const Texts random = textsOf16Bytes(count, false), colliding = textsOf16Bytes(count, true);
    double worst = 0;
    for (const Place place : {Place::values, Place::events, Place::behindTerminator, Place::names}) {
        timeOfTexts(place, random);
        const auto ratio = [&] { return timeOfTexts(place, colliding) / timeOfTexts(place, random); };
        worst = std::max(worst, medianOf(ratio));
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
    const auto sample = [count] {
        const ParserHandle parser = newParser();
        return timeOf([&] {
            for (std::size_t i = 10000000 + count; i > 10000000; --i) {
                const std::string name = "name" + std::to_string(i) + "-wo";
                parser->option((name + "rd").c_str(), "", tamsu2::qel_bool, "bench");
                parseText(*parser, "--" + name + "\n", nullptr);
            }
        });
    };
    return medianOf(sample) / 1e6;
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
    using namespace std::placeholders;
    const std::map<std::string, std::function<double(std::size_t)>> questions = {
        {"queries", askQueries},
        {"stream", askStream},
        {"help", askHelp},
        {"collisions", askCollisions},
        {"near-names", askNearNames},
        {"descending", askDescending},
        {"hyphens", askHyphens},
        {"heap-calls", std::bind(askHeap, _1, true)},
        {"heap-share", std::bind(askHeap, _1, false)}};
    const auto question = argc == 3 ? questions.find(argv[1]) : questions.end();
    if (question == questions.end()) return 2;
    std::printf("%g\n", question->second(std::strtoul(argv[2], nullptr, 10)));
}
