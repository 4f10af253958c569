// A tool made with the companion against the rules that hold for all of them. The first line has the number that makes
// the tool, and the columns of its help; then come an argument a line, after '$' a variable, and after ':' a line of
// settings. A form feed stands for a line feed in an argument.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "support/any_tool.h"
#include "support/plain_rules.h"

namespace {

using vorn_tests::AnyTool;

/// Of how many inputs one is looked at in full: every one of those that are played back.
#ifdef VORN_FUZZ
constexpr std::size_t fullEvery = 128;
#else
constexpr std::size_t fullEvery = 1;
#endif

/// Tools are kept, since making one takes longer than using it. Their parsers keep texts of errors, so they are thrown
/// away now and then.
AnyTool& toolFor(unsigned number) {
    constexpr unsigned manyUses = 4096;
    static std::map<unsigned, std::unique_ptr<AnyTool>> tools;
    static unsigned uses = 0;
    if (++uses % manyUses == 0) tools.clear();
    std::unique_ptr<AnyTool>& tool = tools[number];
    if (tool == nullptr) tool = std::make_unique<AnyTool>(number);
    return *tool;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    vorn_tests::Given given;
    std::string rest = input;
    const std::string numbers = vorn_tests::cutAt('\n', rest);
    char* end = nullptr;
    const auto number = static_cast<unsigned>(std::strtoul(numbers.c_str(), &end, 10) % 1024);
    given.columns = static_cast<unsigned>(std::strtoul(end, nullptr, 10) % 200);
    while (!rest.empty()) {
        std::string line = vorn_tests::cutAt('\n', rest).c_str();
        std::replace(line.begin(), line.end(), '\f', '\n');
        const char kind = line.empty() ? '\0' : line[0];
        if (kind == ':') {
            given.settings += line.substr(1) + "\n";
        } else if (kind == '$') {
            line.erase(0, 1);
            const std::string name = vorn_tests::cutAt('=', line);
            given.environment.push_back({name, line});
        } else {
            given.arguments.push_back(line);
        }
    }
    // The first one may be the library's own: it switches on the log, and no option is given it.
    if (!given.arguments.empty() && given.arguments[0].starts_with("vornoption=vornlogenable="))
        given.arguments.erase(given.arguments.begin());
    given.isFull = std::hash<std::string_view>()(input) % fullEvery == 0;
    const std::string broken = toolFor(number).brokenRule(given);
    vorn_tests::require(broken.empty(), broken.c_str());
    return 0;
}
