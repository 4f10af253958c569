// This library through its companion.
#include <variant>

#include "peer.h"
#include "vorn/host.h"

namespace host = vorn::host;

namespace bench {
namespace {

using Texts = std::vector<std::string>;
using AnyKind = std::variant<host::Key<bool>, host::Key<std::vector<int>>, host::Key<std::vector<double>>,
                             host::Key<Texts>>;

class CompanionPeer : public Peer {
public:
    explicit CompanionPeer(const std::vector<OptionSpec>& options) : parser("bench") {
        for (const OptionSpec& option : options)
            keys.push_back(declared(option));
    }

    bool parse(CommandLine& line, Tally* found) override {
        const host::Outcome outcome = parser.parse(line.argc(), line.argv.data());
        if (found != nullptr && outcome) *found = tally(outcome.result());
        return static_cast<bool>(outcome);
    }

private:
    AnyKind declared(const OptionSpec& option) {
        const char *names = option.names, *description = option.description;
        if (option.kind == Kind::onOff) return parser.addSwitch(names, description).key();
        if (option.kind == Kind::integer) return parser.add<int>(names, description).repeated().key();
        if (option.kind == Kind::number) return parser.add<double>(names, description).repeated().key();
        if (option.kind == Kind::list) return parser.add<std::string>(names, description).list(',').key();
        return parser.add<std::string>(names, description).repeated().key();
    }

    Tally tally(const host::Result& result) const {
        Tally sum;
        for (const AnyKind& any : keys) {
            if (const auto* key = std::get_if<host::Key<bool>>(&any)) sum.switches += result[*key];
            if (const auto* key = std::get_if<host::Key<std::vector<int>>>(&any)) sum.addAll(result[*key]);
            if (const auto* key = std::get_if<host::Key<std::vector<double>>>(&any)) sum.addAll(result[*key]);
            if (const auto* key = std::get_if<host::Key<Texts>>(&any)) sum.addAll(result[*key]);
        }
        return sum;
    }

    host::Parser parser;
    std::vector<AnyKind> keys;
};

}  // namespace

const bool keepsAllValues = true;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<CompanionPeer>(options);
}

}  // namespace bench
