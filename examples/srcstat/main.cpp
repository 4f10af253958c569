// Counts code, comments and blank lines of source files. A tool of ordinary size on the companion: options that share
// a command line with files, and two whose meaning depends on where they stand.
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "line_counter.h"
#include "report.h"
#include "vorn/host.h"
#include "vorn/host/byte_size.h"
#include "vorn/host/path.h"

namespace fs = std::filesystem;
namespace host = vorn::host;

namespace {

enum class Order { name, code, lines };

constexpr const char* aboutSets =
    "Begins a named set of files, which has its own line in the report. Paths and --exclude belong to the "
    "set "
    "that they follow; in front of the first set, --exclude holds for all.";

/// The whole command line in one place: what is declared, and the keys that read it.
struct CommandLine {
    host::Parser parser{"srcstat", "Counts lines of source files, those in folders included."};

    host::Key<std::vector<fs::path>> paths =
        parser.addPositional<fs::path>("path", "Files and folders.").atLeast(0).defaultTo(".").key();

    host::Key<std::vector<std::string>> languages =
        parser.group("Which files are counted")
            .add<std::string>("language", "Count these languages only.")
            .allow("cpp", "python", "shell", "cmake")
            .list(',')
            .key();
    host::Key<std::vector<std::string>> sets =
        parser.add<std::string>("set", aboutSets).metavar("NAME").repeated().key();
    host::Key<std::vector<std::string>> excluded =
        parser.add<std::string>("exclude,x", "Leave out paths that contain one of these texts.")
            .synonym("skip")
            .list(',')
            .key();
    host::Key<std::optional<int>> depth =
        parser.add<int>("depth", "Enter folders to this depth only.").minimum(1).key();
    host::Key<host::ByteSize> sizeLimit = parser.add<host::ByteSize>("size-limit", "Leave out larger files.")
                                              .defaultTo({16 << 20})
                                              .hidden()
                                              .key();

    host::Key<bool> eachFile =
        parser.group("How they are reported").addSwitch("each-file", "Show every file.").key();
    host::Key<Order> order =
        parser.add<Order>("sort", "Order of the files.")
            .named({{"name", Order::name}, {"code", Order::code}, {"lines", Order::lines}})
            .defaultTo(Order::name)
            .key();
    host::Key<bool> comments =
        parser.addSwitch("comment-lines,c", "Show how many lines are comments.").defaultTo(true).key();
    host::Key<bool> blanks =
        parser.addSwitch("blank-lines,b", "Show how many lines are blank.").defaultTo(true).key();
    host::Key<std::string> colour = parser.add<std::string>("colour", "When to use colours.")
                                        .allow("auto", "always", "never")
                                        .implicit("always")
                                        .defaultTo("auto")
                                        .key();

    host::Key<bool> manual =
        parser.addFlag("manual-page", "Print the manual page and exit.").hidden().onlyOnCommandLine().key();

    CommandLine() { parser.version("3.1").joinedShort().responseFiles(); }
};

/// What belongs together on the command line: a name, paths, and what to leave out of them.
struct FileSet {
    std::string name;
    std::vector<fs::path> paths;
    std::vector<std::string> excluded;
};

/// Cuts the command line at every --set. What stands in front of the first one is a set without a name of its own.
std::vector<FileSet> setsOf(const CommandLine& line, const host::Result& result) {
    const std::vector<host::Given<std::string>> cuts = result.given(line.sets);
    const auto end = [&cuts](std::size_t i) { return i < cuts.size() ? cuts[i].position : INT_MAX; };
    const std::vector<std::string> excludedFromAll = result.values(line.excluded, host::before(end(0)));
    std::vector<FileSet> sets = {{"files", result.values(line.paths, host::before(end(0))), excludedFromAll}};
    const bool isDefault = result.given(line.paths, host::before(end(0))).empty();
    if (!cuts.empty() && isDefault) sets.clear();
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        const host::Range stretch = host::between(end(i), end(i + 1));
        sets.push_back({cuts[i].value, result.values(line.paths, stretch), excludedFromAll});
        for (const std::string& text : result.values(line.excluded, stretch))
            sets.back().excluded.push_back(text);
    }
    return sets;
}

class Counter {
public:
    Counter(const CommandLine& line, const host::Result& result)
        : languages(result[line.languages]),
          order(result[line.order]),
          depth(result[line.depth].value_or(INT_MAX)),
          sizeLimit(result[line.sizeLimit].bytes) {}

    srcstat::Section count(const FileSet& set) {
        srcstat::Section section{{set.name, {}}, {}};
        for (const fs::path& path : set.paths)
            visit(path, set, 0, section);
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
        for (const std::string& text : set.excluded) {
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
        if (order == Order::name) return 0;
        return order == Order::code ? file.counts.code : file.counts.lines();
    }

    bool isWanted(std::string_view language) const {
        return languages.empty() ||
               std::find(languages.begin(), languages.end(), language) != languages.end();
    }

    void complain(const std::string& name, const std::error_code& error) {
        std::fprintf(stderr, "srcstat: %s: %s\n", name.c_str(), error.message().c_str());
        failed = true;
    }

    std::vector<std::string> languages;
    Order order;
    int depth;
    unsigned long long sizeLimit;
    bool failed = false;
};

bool usesColour(std::string_view wish) {
    if (wish != "auto") return wish == "always";
    const char* refused = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (refused == nullptr || refused[0] == '\0');
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine line;
    const host::Result result = line.parser.parseOrExit(argc, argv);

    if (result[line.manual]) return std::fputs(line.parser.manual().c_str(), stdout) < 0 ? 1 : 0;

    Counter counter(line, result);
    std::vector<srcstat::Section> sections;
    for (const FileSet& set : setsOf(line, result)) {
        sections.push_back(counter.count(set));
        if (!result[line.eachFile]) sections.back().files.clear();
    }
    srcstat::printReport(sections,
                         {result[line.comments], result[line.blanks], usesColour(result[line.colour])});
    return counter.hasFailed() ? 1 : 0;
}
