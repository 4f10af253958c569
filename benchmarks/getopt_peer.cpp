// The C library's getopt_long: a table, no conversion, nothing kept.
#include <getopt.h>

#include <cstdlib>

#include "peer.h"

namespace bench {
namespace {

constexpr int firstCode = 256;  // above every character, and so above '?', which reports an error

class GetoptPeer : public Peer {
public:
    explicit GetoptPeer(const std::vector<OptionSpec>& registered) : options(registered) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            const int value = options[index].kind == Kind::onOff ? no_argument : required_argument;
            const int code = firstCode + static_cast<int>(index);
            table.push_back({options[index].name, value, nullptr, code});
            table.push_back({options[index].alias, value, nullptr, code});
        }
        table.push_back({nullptr, 0, nullptr, 0});
    }

    bool parse(CommandLine& line, Tally* found) override {
        std::vector<bool> given(found == nullptr ? 0 : options.size());
        optind = 0;  // begins a new command line
        opterr = 0;
        for (;;) {
            const int code = getopt_long(line.argc(), line.argv.data(), "", table.data(), nullptr);
            if (code < firstCode) return code < 0;
            if (found != nullptr) add(*found, static_cast<std::size_t>(code - firstCode), given);
        }
    }

private:
    void add(Tally& tally, std::size_t index, std::vector<bool>& given) const {
        if (options[index].kind == Kind::onOff) tally.switches += !given[index];
        if (options[index].kind == Kind::integer) tally.add(std::atoi(optarg));
        if (options[index].kind == Kind::text) tally.add(optarg);
        if (options[index].kind == Kind::number) tally.add(std::atof(optarg));
        if (options[index].kind == Kind::list) tally.addList(optarg);
        given[index] = true;
    }

    const std::vector<OptionSpec>& options;
    std::vector<option> table;
};

}  // namespace

const bool keepsAllValues = true;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<GetoptPeer>(options);
}

}  // namespace bench
