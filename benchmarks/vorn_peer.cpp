// This library through its plain interface.
#include "vorn_peer.h"

#include "peer.h"

namespace bench {
namespace {

tamsu2::qel_variant_type_t typeOf(Kind kind) {
    if (kind == Kind::onOff) return tamsu2::qel_bool;
    if (kind == Kind::integer) return tamsu2::qel_int;
    if (kind == Kind::number) return tamsu2::qel_double;
    return tamsu2::qel_string;
}

void addValue(Tally& tally, Kind kind, const vorn_3_1::Value& value) {
    if (kind == Kind::integer) tally.add(value.value.asInt());
    if (kind == Kind::number) tally.add(value.value.asDouble());
    if (kind == Kind::text || kind == Kind::list) tally.add(value.text);
}

class VornPeer : public Peer {
public:
    explicit VornPeer(const std::vector<OptionSpec>& registered)
        : options(registered), parser(registerOn(registered)) {}

    bool parse(CommandLine& line, Tally* found) override {
        const ResultHandle result = newResult(*parser);
        const bool parsed = parser->parseArgsVector(line.argc(), line.argv.data(), result.get()) == 0;
        if (found != nullptr) *found = readAll(*result);
        return parsed;
    }

private:
    // Every other option is asked for by its second name.
    Tally readAll(vorn_3_1::IParseResult& result) const {
        Tally tally;
        bool second = false;
        for (const OptionSpec& option : options) {
            second = !second;
            const char* name = second ? option.alias : option.name;
            vorn_3_1::Value value = result.get(name);
            tally.switches += option.kind == Kind::onOff && value.status == 0 && value.value.asBool();
            for (; value.status == 0; value = result.next(name))
                addValue(tally, option.kind, value);
        }
        return tally;
    }

    const std::vector<OptionSpec>& options;
    ParserHandle parser;
};

}  // namespace

ParserHandle newParser() {
    vorn_3_1::IParser* made = nullptr;
    vorn_3_1::createParser(&made, vorn_3_1::unknownIsError);
    return ParserHandle(made);
}

ParserHandle registerOn(const std::vector<OptionSpec>& options) {
    ParserHandle parser = newParser();
    for (const OptionSpec& option : options) {
        vorn_3_1::IOption* builder =
            parser->option(option.names, option.description, typeOf(option.kind), "bench:Options");
        if (option.kind != Kind::list) builder->tokenize('\0');
    }
    return parser;
}

ResultHandle newResult(vorn_3_1::IParser& parser) {
    vorn_3_1::IParseResult* made = nullptr;
    parser.createResult(&made);
    return ResultHandle(made);
}

const bool keepsAllValues = true;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<VornPeer>(options);
}

}  // namespace bench
