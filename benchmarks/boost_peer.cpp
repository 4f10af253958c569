// Boost.Program_options: parsing makes a map of all values; lists stay in one piece.
#include <boost/program_options.hpp>

#include "peer.h"

namespace po = boost::program_options;

using namespace bench;

namespace {

using Integers = std::vector<int>;
using Texts = std::vector<std::string>;

const po::value_semantic* valueFor(Kind kind) {
    if (kind == Kind::onOff) return po::value<Texts>()->zero_tokens();  // a bool may occur only once
    if (kind == Kind::integer) return po::value<Integers>();
    if (kind == Kind::number) return po::value<std::vector<double>>();
    return po::value<Texts>();
}

class BoostPeer : public Peer {
public:
    BoostPeer(const Options& options, Form form) {
        using namespace po::command_line_style;
        style = form == Form::full ? unix_style & ~allow_guessing : unix_style | allow_guessing;
        auto add = description.add_options();
        for (const OptionSpec& option : options)
            add(option.names, valueFor(option.kind), option.description);
    }

    bool parse(CommandLine& line) override {
        try {
            po::variables_map values;
            po::command_line_parser parser(line.argc(), line.argv.data());
            po::store(parser.options(description).style(style).run(), values);
            po::notify(values);
        } catch (const po::error&) {
            return false;
        }
        return true;
    }

private:
    po::options_description description;
    int style;
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form form) {
    return std::make_unique<BoostPeer>(options, form);
}
