#include "workload.h"

#include <array>

namespace bench {
namespace {

// No two words of a row share their first three letters, which is what the shortened forms keep.
using Words = std::array<const char*, 10>;
constexpr Words firstWords = {"archive", "backup", "compile", "debug", "export",
                              "filter",  "import", "layout",  "merge", "output"};
constexpr Words secondWords = {"buffer", "cache", "device", "format", "header",
                               "index",  "limit", "module", "object", "record"};
constexpr Words thirdWords = {"action", "border", "count",  "depth",    "encoding",
                              "folder", "group",  "height", "interval", "level"};
constexpr std::size_t keptLetters = 3;

Kind kindOf(std::size_t index) {
    constexpr Kind kinds[] = {Kind::onOff, Kind::integer, Kind::text};
    if (index % 4 < 3) return kinds[index % 4];
    return index / 4 % 2 == 0 ? Kind::number : Kind::list;
}

// Neighbouring options differ in all their words: names of a real tool are not sorted.
std::string nameOf(std::size_t index) {
    std::string name = firstWords[index % 10];
    name.append("-").append(secondWords[(index / 10 + index) % 10]);
    name.append("-").append(thirdWords[(index / 100 + 3 * index) % 10]);
    if (index >= 1000) name.append("-").append(std::to_string(index / 1000));
    return name;
}

// Adds a text that never moves: there is room for all.
const char* add(std::string& literals, const std::string& text) {
    const std::size_t start = literals.size();
    literals.append(text).push_back('\0');
    return literals.data() + start;
}

// "archive-buffer-action" -> "archive-buffer-act", or "arc-buf-act"
std::string cut(const std::string& name, bool everyWord) {
    std::string shortened;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < name.size(); ++i) {
        kept = name[i] == '-' ? 0 : kept + 1;
        if (kept <= keptLetters || (!everyWord && i < name.rfind('-'))) shortened += name[i];
    }
    return shortened;
}

// Values differ from argument to argument, as file names and numbers do.
std::string valueText(Kind kind, std::size_t index, bool hasDecimalPoint) {
    const std::string digits = std::to_string(index);
    if (kind == Kind::integer) return std::to_string(index * 37 % 100003);
    if (kind == Kind::text) return "build/source-" + digits + ".txt";
    if (kind == Kind::number) return digits + (!hasDecimalPoint ? "" : index / 4 % 2 == 0 ? ".125" : ".75");
    if (kind == Kind::list) return "alpha" + digits + ",beta,gamma" + std::to_string(index % 100);
    return {};
}

// The option of the index-th argument: kinds take turns, and within a kind the walk jumps about but
// meets all options before it meets one again (the step is a prime that divides no such count).
std::size_t optionOfArgument(std::size_t index, std::size_t optionCount) {
    const std::size_t kind = index % 4;
    const std::size_t ofThatKind = (optionCount - kind + 3) / 4;
    return kind + 4 * (index / 4 * 617 % ofThatKind);
}

}  // namespace

Options makeOptions(std::size_t count) {
    // Never given back: a host's literals last as long as the process.
    std::string& names = *new std::string;
    std::string& otherTexts = *new std::string;
    names.reserve(count * 40);
    otherTexts.reserve(count * 240);
    Options options;
    for (std::size_t index = 0; index < count; ++index) {
        const std::string name = nameOf(index);
        const std::string alias = "x" + std::to_string(index);
        options.push_back(
            {add(names, name), add(names, alias), add(otherTexts, name + "," + alias),
             add(otherTexts, "--" + name + ",--" + alias),
             add(otherTexts, "Says how " + name + " is to be treated when the input holds several."),
             kindOf(index)});
    }
    return options;
}

CommandLine makeCommandLine(const Options& options, std::size_t count, Form form, bool hasDecimalPoints) {
    CommandLine line;
    for (std::size_t index = 0; index < count; ++index) {
        const OptionSpec& option = options[optionOfArgument(index, options.size())];
        const std::string value = valueText(option.kind, index, hasDecimalPoints);
        const std::string name = form == Form::full ? option.name : cut(option.name, form == Form::cut);
        line.texts.push_back("--" + name + (value.empty() ? "" : "=" + value));
        line.items += option.kind == Kind::list ? 3 : 1;
        line.itemBytes += option.kind == Kind::onOff ? sizeof "1" : value.size() + 1;
    }
    static char programName[] = "bench";
    line.argv.push_back(programName);
    for (std::string& text : line.texts)
        line.argv.push_back(text.data());
    line.argv.push_back(nullptr);
    return line;
}

}  // namespace bench
