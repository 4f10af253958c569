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

void require(bool holds, const std::string& message) {
    if (holds) return;
    std::fprintf(stderr, "thumbs: %s\n", message.c_str());
    std::exit(2);
}

void run(const cxxopts::ParseResult& result) {
    const char* environment = result.count("quality") != 0 ? nullptr : std::getenv("THUMBS_QUALITY");
    const int quality = environment != nullptr ? std::atoi(environment) : result["quality"].as<int>();
    require(quality >= 1 && quality <= 100, "the quality is from 1 to 100");
    const std::string formatName = result["format"].as<std::string>();
    require(formatName == "text" || formatName == "json", "'" + formatName + "' is no format");
    const Format format = formatName == "text" ? Format::text : Format::json;
    const std::string colour = result["colour"].as<std::string>();
    require(colour == "never" || colour == "auto" || colour == "always", "colours are never, auto or always");
    require(result.count("output-dir") != 0, "missing option: --output-dir DIR");
    require(result.count("image") != 0, "missing argument: IMAGE");
    require(!result.count("quiet") || !result.count("verbose"),
            "'--quiet' and '--verbose' exclude each other");

    std::vector<int> sizes;
    if (result.count("size")) sizes = result["size"].as<std::vector<int>>();
    std::optional<double> limit;
    if (result.count("limit")) limit = result["limit"].as<double>();
    const std::filesystem::path folder = result["output-dir"].as<std::string>();
    const char* origin = result.count("quality") != 0 ? "the command line"
                         : environment                ? "THUMBS_QUALITY"
                                                      : "the default";
    if (result.count("verbose") > 1) std::printf("quality from %s\n", origin);
    std::printf("quality %d, format %s, %zu sizes, colour %s, to %s\n", quality,
                format == Format::json ? "json" : "text", sizes.size(), colour.c_str(), folder.c_str());
    if (limit) std::printf("at most %g s\n", *limit);
    if (result.count("quiet")) return;
    for (const std::filesystem::path image : result["image"].as<std::vector<std::string>>())
        std::printf("%s\n", image.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    using Texts = std::vector<std::string>;
    cxxopts::Options options("thumbs", "Makes small copies of images.");
    options.add_options()("q,quality", "How good they look.", cxxopts::value<int>()->default_value("80"))(
        "format", "What to write.", cxxopts::value<std::string>()->default_value("text"))(
        "size", "Widths in pixels.", cxxopts::value<std::vector<int>>(), "PIXELS")(
        "colour", "When to use colours.",
        cxxopts::value<std::string>()->default_value("auto")->implicit_value("auto"))(
        "o,output-dir", "Where they go.", cxxopts::value<std::string>(), "DIR")(
        "limit", "Stop after so many seconds.", cxxopts::value<double>())(
        "v,verbose", "Say what is done; twice says more.")("quiet", "Say nothing.")("h,help", "Show this.")(
        "version", "Show the version.")("image", "Pictures to read.", cxxopts::value<Texts>());
    options.parse_positional("image");
    try {
        const cxxopts::ParseResult result = options.parse(argc, argv);
        if (result.count("help")) return std::puts(options.help().c_str()) < 0;
        if (result.count("version")) return std::puts("thumbs 1.4.0") < 0;
        run(result);
    } catch (const cxxopts::exceptions::exception& mistake) {
        require(false, mistake.what());
    }
}
