// cxxopts: parsing makes a result that owns all values. Without its regular expressions, which are slower.
#define CXXOPTS_NO_REGEX
#include <cxxopts.hpp>

#include "peer.h"

namespace bench {
namespace {

std::shared_ptr<cxxopts::Value> valueFor(Kind kind) {
    switch (kind) {
        case Kind::onOff:
            return cxxopts::value<bool>();
        case Kind::integer:
            return cxxopts::value<std::vector<int>>();
        case Kind::number:
            return cxxopts::value<std::vector<double>>();
        case Kind::text:
        case Kind::list:
            break;
    }
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
        switch (kind) {
            case Kind::onOff:
                sum.switches += value.as<bool>();
                break;
            case Kind::integer:
                sum.addAll(value.as<std::vector<int>>());
                break;
            case Kind::number:
                sum.addAll(value.as<std::vector<double>>());
                break;
            case Kind::text:
            case Kind::list:
                sum.addAll(value.as<std::vector<std::string>>());
                break;
        }
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
