// cxxopts: parsing makes a result that owns all values. Without its regular expressions, which are slower.
#define CXXOPTS_NO_REGEX
#include <cxxopts.hpp>

#include "peer.h"

using namespace bench;

namespace {

using Integers = std::vector<int>;
using Texts = std::vector<std::string>;

std::shared_ptr<cxxopts::Value> valueFor(Kind kind) {
    if (kind == Kind::onOff) return cxxopts::value<bool>();
    if (kind == Kind::integer) return cxxopts::value<Integers>();
    if (kind == Kind::number) return cxxopts::value<std::vector<double>>();
    return cxxopts::value<Texts>();
}

class CxxoptsPeer : public Peer {
public:
    explicit CxxoptsPeer(const Options& options) : parser("bench", "Is measured.") {
        auto adder = parser.add_options();
        for (const OptionSpec& option : options)
            adder(option.names, option.description, valueFor(option.kind));
    }

    bool parse(CommandLine& line) override {
        try {
            parser.parse(line.argc(), line.argv.data());
        } catch (const std::exception&) {
            return false;
        }
        return true;
    }

private:
    cxxopts::Options parser;
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<CxxoptsPeer>(options);
}
