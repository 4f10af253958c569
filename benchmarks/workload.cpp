#include "workload.h"

#include <array>
#include <stdexcept>

namespace bench {
namespace {

// No two words of a row share their first three letters, which is what the shortened forms keep.
constexpr std::array<const char*, 10> firstWords = {"archive", "backup", "compile", "debug", "export",
                                                    "filter",  "import", "layout",  "merge", "output"};
constexpr std::array<const char*, 10> secondWords = {"buffer", "cache", "device", "format", "header",
                                                     "index",  "limit", "module", "object", "record"};
constexpr std::array<const char*, 10> thirdWords = {"action", "border", "count",  "depth",    "encoding",
                                                    "folder", "group",  "height", "interval", "level"};
constexpr std::size_t keptLetters = 3;

Kind kindOf(std::size_t index) {
    constexpr Kind kinds[] = {Kind::onOff, Kind::integer, Kind::text};
    if (index % 4 < 3) {
        return kinds[index % 4];
    }
    return index / 4 % 2 == 0 ? Kind::number : Kind::list;
}

// Neighbouring options differ in all their words: names of a real tool are not sorted.
std::string nameOf(std::size_t index) {
    std::string name = firstWords[index % 10];
    name.append("-").append(secondWords[(index / 10 + index) % 10]);
    name.append("-").append(thirdWords[(index / 100 + 3 * index) % 10]);
    if (index >= 1000) {
        name.append("-").append(std::to_string(index / 1000));
    }
    return name;
}

// Texts one behind the other, for the life of the process.
class Literals {
public:
    explicit Literals(std::size_t bytes) { all.reserve(bytes); }

    const char* add(const std::string& text) {
        const std::size_t start = all.size();
        if (all.capacity() - start <= text.size()) {
            throw std::length_error("the texts would move");
        }
        all.append(text).push_back('\0');
        return all.data() + start;
    }

private:
    std::string all;
};

// "archive-buffer-action" -> "archive-buffer-act"
std::string cutLastWord(const std::string& name) { return name.substr(0, name.rfind('-') + 1 + keptLetters); }

// "archive-buffer-action" -> "arc-buf-act"
std::string cutEveryWord(const std::string& name) {
    std::string cut;
    std::size_t kept = 0;
    for (const char letter : name) {
        kept = letter == '-' ? 0 : kept + 1;
        if (kept <= keptLetters) {
            cut += letter;
        }
    }
    return cut;
}

std::string typedName(const OptionSpec& option, Form form) {
    if (form == Form::prefix) return cutLastWord(option.name);
    if (form == Form::cut) return cutEveryWord(option.name);
    return option.name;
}

// Values differ from argument to argument, as file names and numbers do; the numbers are multiples of
// an eighth, so that their sums are exact.
std::string valueText(Kind kind, std::size_t index, bool hasDecimalPoint) {
    const std::string digits = std::to_string(index);
    if (kind == Kind::integer) return std::to_string(index * 37 % 100003);
    if (kind == Kind::text) return "build/source-" + digits + ".txt";
    if (kind == Kind::number) return digits + (!hasDecimalPoint ? "" : index / 4 % 2 == 0 ? ".125" : ".75");
    if (kind == Kind::list) return "alpha" + digits + ",beta,gamma" + std::to_string(index % 100);
    return {};
}

void addValue(Tally& tally, Kind kind, const std::string& value) {
    if (kind == Kind::onOff) ++tally.switches;
    if (kind == Kind::integer) tally.add(std::stoi(value));
    if (kind == Kind::text) tally.add(value);
    if (kind == Kind::number) tally.add(std::stod(value));
    if (kind == Kind::list) tally.addList(value);
}

// The option of the index-th argument: kinds take turns, and within a kind the walk jumps about but
// meets all options before it meets one again (the step is a prime that divides no such count).
std::size_t optionOfArgument(std::size_t index, std::size_t optionCount) {
    const std::size_t kind = index % 4;
    const std::size_t ofThatKind = (optionCount - kind + 3) / 4;
    return kind + 4 * (index / 4 * 617 % ofThatKind);
}

}  // namespace

void Tally::add(int value) {
    ++values;
    integers += value;
}

void Tally::add(double value) {
    ++values;
    numbers += value;
}

void Tally::add(std::string_view text) {
    ++values;
    std::uint32_t hash = 2166136261u;
    for (const char letter : text) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619u;
    }
    texts += hash;
}

void Tally::addList(std::string_view joined) {
    for (std::size_t end = joined.find(','); end != std::string_view::npos; end = joined.find(',')) {
        add(joined.substr(0, end));
        joined.remove_prefix(end + 1);
    }
    add(joined);
}

std::vector<OptionSpec> makeOptions(std::size_t count) {
    // Never given back: a host's literals last as long as the process.
    Literals& names = *new Literals(count * 40);
    Literals& otherTexts = *new Literals(count * 240);
    std::vector<OptionSpec> options;
    for (std::size_t index = 0; index < count; ++index) {
        const std::string name = nameOf(index);
        const std::string alias = "x" + std::to_string(index);
        options.push_back(
            {names.add(name), names.add(alias), otherTexts.add(name + "," + alias),
             otherTexts.add("--" + name + ",--" + alias),
             otherTexts.add("Says how " + name + " is to be treated when the input holds several."),
             kindOf(index)});
    }
    return options;
}

CommandLine makeCommandLine(const std::vector<OptionSpec>& options, std::size_t count, Form form,
                            bool hasDecimalPoints) {
    CommandLine line;
    std::vector<std::string> lastValues(options.size());
    std::vector<bool> given(options.size());
    line.texts.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t chosen = optionOfArgument(index, options.size());
        const OptionSpec& option = options[chosen];
        const std::string value = valueText(option.kind, index, hasDecimalPoints);
        line.texts.push_back("--" + typedName(option, form) + (value.empty() ? "" : "=" + value));
        if (option.kind != Kind::onOff || !given[chosen]) {
            addValue(line.everything, option.kind, value);
        }
        line.items += option.kind == Kind::list ? 3 : 1;
        line.itemBytes += option.kind == Kind::onOff ? sizeof "1" : value.size() + 1;
        lastValues[chosen] = value;
        given[chosen] = true;
    }
    for (std::size_t index = 0; index < options.size(); ++index) {
        if (given[index]) {
            addValue(line.lastOnly, options[index].kind, lastValues[index]);
        }
    }
    static char programName[] = "bench";
    line.argv.push_back(programName);
    for (std::string& text : line.texts) {
        line.argv.push_back(text.data());
    }
    line.argv.push_back(nullptr);
    return line;
}

}  // namespace bench
