// This library through its plain interface.
#include "vorn_peer.h"

#include "peer.h"

using namespace bench;

namespace {

tamsu2::qel_variant_type_t typeOf(Kind kind) {
    if (kind == Kind::onOff) return tamsu2::qel_bool;
    if (kind == Kind::integer) return tamsu2::qel_int;
    if (kind == Kind::number) return tamsu2::qel_double;
    return tamsu2::qel_string;
}

class VornPeer : public Peer {
public:
    explicit VornPeer(const Options& options) : parser(registerOn(options)) {}

    bool parse(CommandLine& line) override {
        const ResultHandle result = newResult(*parser);
        return parser->parseArgsVector(line.argc(), line.argv.data(), result.get()) == 0;
    }

private:
    ParserHandle parser;
};

}  // namespace

ParserHandle bench::newParser() {
    vorn_3_1::IParser* made = nullptr;
    vorn_3_1::createParser(&made, vorn_3_1::unknownIsError);
    return ParserHandle(made);
}

ParserHandle bench::registerOn(const Options& options) {
    ParserHandle parser = newParser();
    for (const OptionSpec& option : options) {
        vorn_3_1::IOption* builder =
            parser->option(option.names, option.description, typeOf(option.kind), "bench:Options");
        if (option.kind != Kind::list) builder->tokenize('\0');
    }
    return parser;
}

ResultHandle bench::newResult(vorn_3_1::IParser& parser) {
    vorn_3_1::IParseResult* made = nullptr;
    parser.createResult(&made);
    return ResultHandle(made);
}

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<VornPeer>(options);
}
