// CLI11: every option writes into a variable; a vector gets all occurrences of a command line.
#include <CLI/CLI.hpp>
#include <deque>

#include "peer.h"

using namespace bench;

namespace {

struct Bound {
    bool onOff = false;
    std::vector<int> integers;
    std::vector<double> numbers;
    std::vector<std::string> texts;
};

class Cli11Peer : public Peer {
public:
    explicit Cli11Peer(const Options& options) {
        for (const OptionSpec& option : options)
            add(option, bound.emplace_back());
    }

    bool parse(CommandLine& line) override {
        try {
            app.parse(line.argc(), line.argv.data());  // forgets the parse before
        } catch (const CLI::ParseError&) {
            return false;
        }
        return true;
    }

private:
    void add(const OptionSpec& option, Bound& target) {
        const char* names = option.dashedNames;
        const char* description = option.description;
        if (option.kind == Kind::onOff) app.add_flag(names, target.onOff, description);
        if (option.kind == Kind::integer) one(app.add_option(names, target.integers, description));
        if (option.kind == Kind::number) one(app.add_option(names, target.numbers, description));
        if (option.kind == Kind::text) one(app.add_option(names, target.texts, description));
        if (option.kind == Kind::list) one(app.add_option(names, target.texts, description))->delimiter(',');
    }

    // Otherwise an option with a vector takes the arguments that follow it, too.
    static CLI::Option* one(CLI::Option* option) { return option->allow_extra_args(false); }

    CLI::App app;
    std::deque<Bound> bound;  // never moves what the options point to
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<Cli11Peer>(options);
}
