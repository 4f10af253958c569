// What examples/thumbs.cpp does, with cxxopts: names for enumerators, ranges, choices, what is required and what
// excludes each other are its own work. Only compiled, to see what that costs.
#include <cstdio>
#include <cstdlib>
#include <cxxopts.hpp>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

enum class Format { text, json };

namespace {

[[noreturn]] void fail(const std::string& message) {
    std::fprintf(stderr, "thumbs: %s\n", message.c_str());
    std::exit(2);
}

Format formatOf(const std::string& name) {
    if (name == "text") return Format::text;
    if (name == "json") return Format::json;
    fail("'" + name + "' is no format");
}

void run(const cxxopts::ParseResult& result, cxxopts::Options& options) {
    if (result.count("help")) {
        std::puts(options.help().c_str());
        return;
    }
    if (result.count("version")) {
        std::puts("thumbs 1.4.0");
        return;
    }
    const char* fromEnvironment = std::getenv("THUMBS_QUALITY");
    const bool isGiven = result.count("quality") != 0;
    const int quality =
        !isGiven && fromEnvironment != nullptr ? std::atoi(fromEnvironment) : result["quality"].as<int>();
    if (quality < 1 || quality > 100) fail("the quality is from 1 to 100");
    const Format format = formatOf(result["format"].as<std::string>());
    const std::string colour = result["colour"].as<std::string>();
    if (colour != "never" && colour != "auto" && colour != "always")
        fail("colours are never, auto or always");
    if (result.count("output-dir") == 0) fail("missing option: --output-dir DIR");
    if (result.count("image") == 0) fail("missing argument: IMAGE");
    if (result.count("quiet") && result.count("verbose"))
        fail("'--quiet' and '--verbose' exclude each other");

    std::vector<int> sizes;
    if (result.count("size")) sizes = result["size"].as<std::vector<int>>();
    std::optional<double> limit;
    if (result.count("limit")) limit = result["limit"].as<double>();
    const std::filesystem::path folder = result["output-dir"].as<std::string>();
    if (result.count("verbose") > 1)
        std::printf("quality from %s\n", isGiven                      ? "the command line"
                                         : fromEnvironment != nullptr ? "THUMBS_QUALITY"
                                                                      : "the default");
    std::printf("quality %d, format %s, %zu sizes, colour %s, to %s\n", quality,
                format == Format::json ? "json" : "text", sizes.size(), colour.c_str(), folder.c_str());
    if (limit) std::printf("at most %g s\n", *limit);
    if (result.count("quiet")) return;
    for (const std::filesystem::path image : result["image"].as<std::vector<std::string>>())
        std::printf("%s\n", image.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    cxxopts::Options options("thumbs", "Makes small copies of images.");
    options.add_options()("q,quality", "How good they look.", cxxopts::value<int>()->default_value("80"))(
        "format", "What to write.", cxxopts::value<std::string>()->default_value("text"))(
        "size", "Widths in pixels.", cxxopts::value<std::vector<int>>(), "PIXELS")(
        "colour", "When to use colours.",
        cxxopts::value<std::string>()->default_value("auto")->implicit_value("auto"))(
        "o,output-dir", "Where they go.", cxxopts::value<std::string>(), "DIR")(
        "limit", "Stop after so many seconds.", cxxopts::value<double>())(
        "v,verbose", "Say what is done; twice says more.")("quiet", "Say nothing.")("h,help", "Show this.")(
        "version", "Show the version.")("image", "Pictures to read.",
                                        cxxopts::value<std::vector<std::string>>());
    options.parse_positional("image");
    try {
        run(options.parse(argc, argv), options);
    } catch (const cxxopts::exceptions::exception& mistake) {
        fail(mistake.what());
    }
}
