// Counts code, comments and blank lines of source files. A tool of ordinary size on the companion header: it
// shows options that share a command line with files, and one whose meaning depends on where it stands.
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "line_counter.h"
#include "report.h"
#include "vorn/host.h"

namespace fs = std::filesystem;
namespace host = vorn_3_1::host;
using Text = std::string_view;

namespace {

/// What belongs together on the command line: a name, paths, and what to leave out of them.
struct FileSet {
    std::string name;
    std::vector<Text> paths;
    std::vector<Text> excluded;
};

void addOptions(host::Parser& parser) {
    parser.usage(
        "Usage: srcstat [options] [path...] [@file] [-- path...]\n\n"
        "Counts lines of source files, those in folders included. A response file holds\n"
        "one argument per line.");

    parser.add<Text>("language", "Count these languages only.", "files:Which files are counted")
        .allow("cpp", "python", "shell", "cmake")
        .list(',');
    parser.add<Text>(
        "set",
        "Begins a named set of files, which has its own line in the report. Paths and --exclude belong "
        "to the set that they follow; in front of the first set, --exclude holds for all.",
        "files");
    parser.add<Text>("exclude,x", "Leave out paths that contain one of these texts.", "files")
        .list(',')
        .synonym("skip");
    parser.add<int>("depth", "Enter folders to this depth only.", "files").check([](int depth) {
        return depth > 0 ? "" : "a depth is 1 or more";
    });
    parser.add<Text>("path", "", "files").positional();

    parser.add<bool>("each-file", "Show every file.", "report:How it is reported").defaultTo(false);
    parser.add<Text>("sort", "Order of the files.", "report")
        .allow("name", "code", "lines")
        .defaultTo("name");
    parser.add<bool>("comment-lines,c", "Show how many lines are comments.", "report").defaultTo(true);
    parser.add<bool>("blank-lines,b", "Show how many lines are blank.", "report").defaultTo(true);
    parser.add<Text>("colour", "Use colours.", "report").allow("auto", "always", "never").defaultTo("auto");

    parser.add<std::uint64_t>("size-limit", "Leave out larger files.", host::hiddenGroup)
        .defaultTo(0x1000000u);
    parser.add<host::NoValue>("version", "Show the version.", host::hiddenGroup);
    parser.help("help,h", "report").helpAll("help-all", "report");
    parser.responseFiles();
}

/// Cuts the command line at every --set.
std::vector<FileSet> setsOf(const host::Result& result) {
    std::vector<int> cuts = result.occurrences("set");
    const std::vector<Text> names = result.values<Text>("set");
    cuts.push_back(INT_MAX);

    const std::vector<Text> excludedFromAll = result.values<Text>("exclude", host::before(cuts[0]));
    std::vector<FileSet> sets = {
        {"files", result.values<Text>("path", host::before(cuts[0])), excludedFromAll}};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const host::Between range = host::between(cuts[i], cuts[i + 1]);
        FileSet set = {std::string(names[i]), result.values<Text>("path", range), excludedFromAll};
        for (Text text : result.values<Text>("exclude", range))
            set.excluded.push_back(text);
        sets.push_back(set);
    }
    for (Text path : result.arguments())
        sets.back().paths.push_back(path);

    if (!names.empty() && sets.front().paths.empty()) sets.erase(sets.begin());
    if (names.empty() && sets.front().paths.empty()) sets.front().paths.emplace_back(".");
    return sets;
}

class Counter {
public:
    explicit Counter(const host::Result& result)
        : languages(result.values<Text>("language")),
          order(*result.value<Text>("sort")),
          depth(result.value<int>("depth").value_or(INT_MAX)),
          sizeLimit(*result.value<std::uint64_t>("size-limit")) {}

    srcstat::Section count(const FileSet& set) {
        srcstat::Section section{{set.name, {}}, {}};
        for (Text path : set.paths)
            visit(fs::path(path), set, 0, section);
        std::sort(section.files.begin(), section.files.end(), [this](const auto& left, const auto& right) {
            const long difference = weight(left) - weight(right);
            return difference != 0 ? difference > 0 : left.name < right.name;
        });
        return section;
    }

    bool hasFailed() const { return failed; }

private:
    void visit(const fs::path& path, const FileSet& set, int level, srcstat::Section& section) {
        const std::string name = path.string();
        for (Text text : set.excluded) {
            if (name.find(text) != std::string::npos) return;
        }
        std::error_code error;
        if (!fs::is_directory(path, error)) {
            if (error) return complain(name, error);
            return countFile(path, level > 0, section);
        }
        if (level >= depth) return;
        for (const fs::directory_entry& entry : fs::directory_iterator(path, error)) {
            visit(entry.path(), set, level + 1, section);
        }
        if (error) complain(name, error);
    }

    void countFile(const fs::path& path, bool wasFound, srcstat::Section& section) {
        const srcstat::Language* language = srcstat::languageOf(path);
        if (language == nullptr || !isWanted(language->name)) return;
        std::error_code error;
        if (fs::file_size(path, error) > sizeLimit && wasFound) return;
        std::ifstream text(path);
        if (!text) return complain(path.string(), std::make_error_code(std::errc::permission_denied));
        const srcstat::LineCounts counts = srcstat::countLines(text, *language);
        section.sum.counts += counts;
        section.files.push_back({path.string(), counts});
    }

    long weight(const srcstat::Row& file) const {
        if (order == "name") return 0;
        return order == "code" ? file.counts.code : file.counts.lines();
    }

    bool isWanted(Text language) const {
        return languages.empty() ||
               std::find(languages.begin(), languages.end(), language) != languages.end();
    }

    void complain(const std::string& name, const std::error_code& error) {
        std::fprintf(stderr, "srcstat: %s: %s\n", name.c_str(), error.message().c_str());
        failed = true;
    }

    std::vector<Text> languages;
    Text order;
    int depth;
    std::uint64_t sizeLimit;
    bool failed = false;
};

bool usesColour(Text wish) {
    if (wish != "auto") return wish == "always";
    const char* refused = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (refused == nullptr || refused[0] == '\0');
}

}  // namespace

int main(int argc, char** argv) {
    host::Parser parser;
    addOptions(parser);
    const host::Result result = parser.parseOrExit(argc, argv);
    if (result.isExplicit("version")) {
        std::puts("srcstat 3.1");
        return 0;
    }

    Counter counter(result);
    std::vector<srcstat::Section> sections;
    for (const FileSet& set : setsOf(result)) {
        sections.push_back(counter.count(set));
        if (!*result.value<bool>("each-file")) sections.back().files.clear();
    }
    srcstat::printReport(sections, {*result.value<bool>("comment-lines"), *result.value<bool>("blank-lines"),
                                    usesColour(*result.value<Text>("colour"))});
    return counter.hasFailed() ? 1 : 0;
}
