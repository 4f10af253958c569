// Boost.Program_options: parsing makes a map of all values; lists stay in one piece.
#include <boost/program_options.hpp>

#include "peer.h"

namespace po = boost::program_options;

namespace bench {
namespace {

using Texts = std::vector<std::string>;

const po::value_semantic* valueFor(Kind kind) {
    if (kind == Kind::onOff) return po::value<Texts>()->zero_tokens();  // a bool may occur only once
    if (kind == Kind::integer) return po::value<std::vector<int>>();
    if (kind == Kind::number) return po::value<std::vector<double>>();
    return po::value<Texts>();
}

class BoostPeer : public Peer {
public:
    BoostPeer(const std::vector<OptionSpec>& registered, Form form) : options(registered) {
        using namespace po::command_line_style;
        style = form == Form::full ? unix_style & ~allow_guessing : unix_style | allow_guessing;
        auto add = description.add_options();
        for (const OptionSpec& option : options)
            add(option.names, valueFor(option.kind), option.description);
    }

    bool parse(CommandLine& line, Tally* found) override {
        try {
            po::variables_map values;
            po::store(po::command_line_parser(line.argc(), line.argv.data())
                          .options(description)
                          .style(style)
                          .run(),
                      values);
            po::notify(values);
            if (found != nullptr) *found = tally(values);
        } catch (const po::error&) {
            return false;
        }
        return true;
    }

private:
    Tally tally(const po::variables_map& values) const {
        Tally sum;
        for (const OptionSpec& option : options) {
            if (values.count(option.name) != 0) add(sum, option.kind, values[option.name]);
        }
        return sum;
    }

    static void add(Tally& sum, Kind kind, const po::variable_value& value) {
        switch (kind) {
            case Kind::onOff:
                ++sum.switches;
                break;
            case Kind::integer:
                sum.addAll(value.as<std::vector<int>>());
                break;
            case Kind::number:
                sum.addAll(value.as<std::vector<double>>());
                break;
            case Kind::text:
                sum.addAll(value.as<Texts>());
                break;
            case Kind::list:
                for (const std::string& one : value.as<Texts>())
                    sum.addList(one);
                break;
        }
    }

    const std::vector<OptionSpec>& options;
    po::options_description description;
    int style;
};

}  // namespace

const bool keepsAllValues = true;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form form) {
    return std::make_unique<BoostPeer>(options, form);
}

}  // namespace bench
