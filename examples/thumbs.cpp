// Declares what an image tool takes, and shows what it was given.
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "vorn/host.h"
#include "vorn/host/path.h"  // types that cost a heavy header are taught in headers of their own

namespace host = vorn::host;

enum class Format { text, json };

// clang-format off
int main(int argc, char** argv) {
    host::Parser parser("thumbs", "Makes small copies of images.");
    parser.version("1.4.0");
    parser.joinedShort();

    const auto quality = parser.add<int>("quality,q", "How good they look.").range(1, 100).defaultTo(80)
                             .environment("THUMBS_QUALITY").key();
    const auto format = parser.add<Format>("format", "What to write.")
                            .named({{"text", Format::text}, {"json", Format::json}}).defaultTo(Format::text).key();
    const auto sizes = parser.add<int>("size", "Widths in pixels.").metavar("PIXELS").list(',').key();
    const auto colour = parser.add<std::string>("colour", "When to use colours.")
                            .allow("never", "auto", "always").implicit("auto").defaultTo("auto").key();
    const auto folder = parser.add<std::filesystem::path>("output-dir,o", "Where they go.").metavar("DIR").required().key();
    const auto limit = parser.add<double>("limit", "Stop after so many seconds.").key();
    const auto verbose = parser.addCount("verbose,v", "Say what is done; twice says more.").key();
    const auto quiet = parser.addSwitch("quiet", "Say nothing.").key();
    const auto images = parser.addPositional<std::filesystem::path>("image", "Pictures to read.").atLeast(1).key();
    parser.exclusive({quiet, verbose});

    const host::Result result = parser.parseOrExit(argc, argv);

    const int q = result[quality];                                // a default: always there
    const Format f = result[format];
    const std::vector<int>& s = result[sizes];                    // a list
    const std::optional<double> l = result[limit];                // nothing promised: optional
    const std::filesystem::path& d = result[folder];              // required: always there
    if (result[verbose] > 1) std::printf("quality from %s\n", result.origin(quality).text().c_str());
    std::printf("quality %d, format %s, %zu sizes, colour %s, to %s\n", q, f == Format::json ? "json" : "text", s.size(),
                result[colour].c_str(), d.c_str());
    if (l) std::printf("at most %g s\n", *l);
    if (!result[quiet]) {
        for (const std::filesystem::path& image : result[images])
            std::printf("%s\n", image.c_str());
    }
}
