// The C library's getopt_long: a table, no conversion, nothing kept.
#include <getopt.h>

#include "peer.h"

using namespace bench;

namespace {

constexpr int firstCode = 256;  // above every character, and so above '?', which reports an error

class GetoptPeer : public Peer {
public:
    explicit GetoptPeer(const Options& options) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            const int value = options[index].kind == Kind::onOff ? no_argument : required_argument;
            const int code = firstCode + static_cast<int>(index);
            table.push_back({options[index].name, value, nullptr, code});
            table.push_back({options[index].alias, value, nullptr, code});
        }
        table.push_back({nullptr, 0, nullptr, 0});
    }

    bool parse(CommandLine& line) override {
        optind = 0;  // begins a new command line
        opterr = 0;
        int code = firstCode;
        while (code >= firstCode)
            code = getopt_long(line.argc(), line.argv.data(), "", table.data(), nullptr);
        return code < 0;
    }

private:
    std::vector<option> table;
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<GetoptPeer>(options);
}
