// LLVM's CommandLine: options are objects that write into variables; the second name is an alias.
// Keeps the last; lists stay in one piece.
#include <llvm/Support/CommandLine.h>
#include <llvm/Support/raw_ostream.h>

#include "peer.h"

namespace cl = llvm::cl;

using namespace bench;

namespace {

struct Slot {
    bool onOff = false;
    int integer = 0;
    double number = 0;
    std::string text;
};

template <class Value>
std::unique_ptr<cl::Option> makeOption(const OptionSpec& option, Value& target) {
    return std::make_unique<cl::opt<Value, true>>(llvm::StringRef(option.name), cl::desc(option.description),
                                                  cl::location(target), cl::ZeroOrMore);
}

std::unique_ptr<cl::Option> makeOptionFor(const OptionSpec& option, Slot& slot) {
    if (option.kind == Kind::onOff) return makeOption(option, slot.onOff);
    if (option.kind == Kind::integer) return makeOption(option, slot.integer);
    if (option.kind == Kind::number) return makeOption(option, slot.number);
    return makeOption(option, slot.text);
}

class LlvmPeer : public Peer {
public:
    explicit LlvmPeer(const Options& options) : slots(options.size()) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            entries.push_back(makeOptionFor(options[index], slots[index]));
            cl::Option& option = *entries.back();
            entries.push_back(
                std::make_unique<cl::alias>(llvm::StringRef(options[index].alias), cl::aliasopt(option)));
        }
    }

    ~LlvmPeer() override {
        for (const std::unique_ptr<cl::Option>& entry : entries)
            entry->removeArgument();  // the registry of the process would keep a dangling pointer
    }

    bool parse(CommandLine& line) override {
        return cl::ParseCommandLineOptions(line.argc(), line.argv.data(), "", &llvm::nulls());
    }

private:
    std::vector<Slot> slots;
    std::vector<std::unique_ptr<cl::Option>> entries;
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<LlvmPeer>(options);
}
