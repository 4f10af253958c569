// This library through its companion.
#include "peer.h"
#include "vorn/host.h"

namespace host = vorn::host;

using namespace bench;

namespace {

class CompanionPeer : public Peer {
public:
    explicit CompanionPeer(const Options& options) : parser("bench") {
        for (const OptionSpec& option : options)
            add(option);
    }

    bool parse(CommandLine& line) override {
        return static_cast<bool>(parser.parse(line.argc(), line.argv.data()));
    }

private:
    void add(const OptionSpec& option) {
        const char *names = option.names, *description = option.description;
        if (option.kind == Kind::onOff) parser.addSwitch(names, description);
        if (option.kind == Kind::integer) parser.add<int>(names, description).repeated().key();
        if (option.kind == Kind::text) parser.add<std::string>(names, description).repeated().key();
        if (option.kind == Kind::number) parser.add<double>(names, description).repeated().key();
        if (option.kind == Kind::list) parser.add<std::string>(names, description).list(',').key();
    }

    host::Parser parser;
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<CompanionPeer>(options);
}
