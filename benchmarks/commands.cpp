// Nanoseconds an option of commands that were not chosen, from declaring to releasing: 200 commands with 50 options each,
// through the companion.
#include <cstdio>
#include <cstdlib>

#include "meter.h"
#include "vorn/host.h"
#include "workload.h"

int main() {
    namespace host = vorn::host;
    const bench::Options commands = bench::makeOptions(200), options = bench::makeOptions(50);
    const auto parseChosen = [&](std::size_t count) {
        host::Parser parser("bench");
        for (const bench::OptionSpec& command : commands) {
            host::Parser& declared = parser.command(command.name, command.description);
            for (std::size_t i = 0; i < count; ++i)
                declared.add<std::string>(options[i].names, options[i].description);
        }
        if (!parser.parse({commands[0].name})) std::abort();
    };
    const double withOptions = bench::medianTime([&] { parseChosen(options.size()); });
    const double without = bench::medianTime([&] { parseChosen(0); });
    std::printf("%g\n",
                (withOptions - without) / static_cast<double>((commands.size() - 1) * options.size()));
}
