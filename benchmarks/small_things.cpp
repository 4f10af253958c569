#include <dlfcn.h>
#include <link.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

#include "questions.h"
#include "vorn_peer.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

int runProgram(const std::string& path, std::vector<std::string> arguments) {
    std::vector<char*> argv = {const_cast<char*>(path.c_str())};
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    pid_t child = 0;
    int status = -1;
    if (posix_spawnp(&child, path.c_str(), nullptr, nullptr, argv.data(), environ) != 0 ||
        waitpid(child, &status, 0) != child) {
        return -1;
    }
    return status;
}

void mustRun(const std::string& path, const std::vector<std::string>& arguments) {
    if (runProgram(path, arguments) != 0) {
        throw std::runtime_error("does not run: " + fs::path(path).filename().string());
    }
}

void askStart(const Settings& settings, Report& report) {
    const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
    const std::string host = folder / "vorn_bench_host";
    const std::string empty = folder / "vorn_bench_empty";
    const std::vector<std::string> arguments = {"--output-file=a.txt", "--level=3", "--verbose",
                                                "--ratio=0.5", "--define=a,b"};
    Plan plan = settings.plan;
    plan.rounds *= 15;  // a process start is short and its time scatters widely
    plan.sampleNs = 0;
    plan.clock = CLOCK_MONOTONIC;
    const std::vector<Series> series =
        measure({{[&] { mustRun(host, arguments); }, 1}, {[&] { mustRun(empty, {}); }, 1}}, plan);
    report.heading("Whole process");
    report.table({"process", "microseconds"},
                 {{"host with 5 options and 5 arguments", figure(median(series[0]) / 1000)},
                  {"empty main with the C++ runtime", figure(median(series[1]) / 1000)}});
    report.goal("start, host of 5 options: beside an empty main", 1.25, medianRatio(series[0], series[1]));
}

// The shared library that this program uses.
fs::path libraryPath() {
    Dl_info info{};
    dladdr(reinterpret_cast<const void*>(&vorn_3_1::createParser), &info);
    return fs::canonical(info.dli_fname);
}

std::optional<double> strippedKibibytes() {
    const fs::path copy = fs::temp_directory_path() / ("vorn-bench-" + std::to_string(getpid()));
    const bool stripped = runProgram("strip", {"-o", copy.string(), libraryPath().string()}) == 0;
    const std::optional<double> size =
        stripped ? std::optional(static_cast<double>(fs::file_size(copy)) / 1024) : std::nullopt;
    fs::remove(copy);
    return size;
}

// What the library has run when it is loaded. The compiler's own start-up file adds one to every library.
std::optional<double> staticConstructors() {
    void* library = dlopen(libraryPath().c_str(), RTLD_NOW | RTLD_NOLOAD);
    link_map* map = nullptr;
    if (library == nullptr || dlinfo(library, RTLD_DI_LINKMAP, &map) != 0) {
        return std::nullopt;
    }
    double count = 0;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_INIT_ARRAYSZ) {
            count = static_cast<double>(entry->d_un.d_val / sizeof(void*)) - 1;
        }
    }
    dlclose(library);
    return count;
}

void askLibrary(Report& report) {
    const std::optional<double> size = strippedKibibytes();
    const std::optional<double> constructors = staticConstructors();
    report.heading("The library");
    report.table({"what", "measured"}, {{"stripped, KiB", size ? figure(*size) : "-"},
                                        {"static constructors", constructors ? figure(*constructors) : "-"}});
    if (sizeof(void*) == 4) {
        report.goal("library, stripped", 120, size, "KiB");
    }
    report.goal("library, static constructors", 0, constructors, "");
}

// A new parser each time, since equal texts may be kept.
void askHelp(const Settings& settings, Report& report) {
    const std::vector<OptionSpec> options = makeOptions(settings.optionCounts.back());
    ParserHandle parser;
    const Subject help = {[&] { parser->getDescription(); }, 1, [&] { parser = registerOn(options); }};
    const double milliseconds = median(measure({help}, settings.plan)[0]) / 1e6;
    const std::string text = "help for " + std::to_string(options.size()) + " options";
    report.heading("Help");
    report.table({"what", "milliseconds"}, {{text, figure(milliseconds)}});
    report.goal(text, 1, milliseconds, "ms");
}

}  // namespace

void askSmallThings(const Settings& settings, Report& report) {
    askStart(settings, report);
    askLibrary(report);
    askHelp(settings, report);
}

}  // namespace bench
