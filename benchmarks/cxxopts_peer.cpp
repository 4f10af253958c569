// cxxopts: parsing makes a result that owns all values. Without its regular expressions, which are slower.
#define CXXOPTS_NO_REGEX
#include <cxxopts.hpp>

#include "peer.h"

namespace bench {
namespace {

std::shared_ptr<cxxopts::Value> valueFor(Kind kind) {
    if (kind == Kind::onOff) return cxxopts::value<bool>();
    if (kind == Kind::integer) return cxxopts::value<std::vector<int>>();
    if (kind == Kind::number) return cxxopts::value<std::vector<double>>();
    return cxxopts::value<std::vector<std::string>>();
}

class CxxoptsPeer : public Peer {
public:
    explicit CxxoptsPeer(const std::vector<OptionSpec>& registered)
        : options(registered), parser("bench", "Is measured.") {
        auto adder = parser.add_options();
        for (const OptionSpec& option : options)
            adder(option.names, option.description, valueFor(option.kind));
    }

    bool parse(CommandLine& line, Tally* found) override {
        try {
            const cxxopts::ParseResult result = parser.parse(line.argc(), line.argv.data());
            if (found != nullptr) *found = tally(result);
        } catch (const std::exception&) {
            return false;
        }
        return true;
    }

private:
    Tally tally(const cxxopts::ParseResult& result) const {
        Tally sum;
        for (const OptionSpec& option : options) {
            if (result.count(option.name) != 0) add(sum, option.kind, result[option.name]);
        }
        return sum;
    }

    static void add(Tally& sum, Kind kind, const cxxopts::OptionValue& value) {
        if (kind == Kind::onOff) sum.switches += value.as<bool>();
        if (kind == Kind::integer) sum.addAll(value.as<std::vector<int>>());
        if (kind == Kind::number) sum.addAll(value.as<std::vector<double>>());
        if (kind == Kind::text || kind == Kind::list) sum.addAll(value.as<std::vector<std::string>>());
    }

    const std::vector<OptionSpec>& options;
    cxxopts::Options parser;
};

}  // namespace

const bool keepsAllValues = true;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<CxxoptsPeer>(options);
}

}  // namespace bench
