// LLVM's CommandLine: options are objects that write into variables; the second name is an alias.
// Keeps the last; lists stay in one piece.
#include <llvm/Support/CommandLine.h>
#include <llvm/Support/raw_ostream.h>

#include "peer.h"

namespace cl = llvm::cl;

namespace bench {
namespace {

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
    explicit LlvmPeer(const std::vector<OptionSpec>& registered)
        : options(registered), slots(registered.size()) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            entries.push_back(makeOptionFor(options[index], slots[index]));
            cl::Option& option = *entries.back();
            entries.push_back(
                std::make_unique<cl::alias>(llvm::StringRef(options[index].alias), cl::aliasopt(option)));
        }
    }

    ~LlvmPeer() override {
        for (const std::unique_ptr<cl::Option>& entry : entries) {
            entry->removeArgument();  // the registry of the process would keep a dangling pointer
        }
    }

    bool parse(CommandLine& line, Tally* found) override {
        const bool parsed = cl::ParseCommandLineOptions(line.argc(), line.argv.data(), "", &llvm::nulls());
        if (found != nullptr) *found = tallyOf(options, slots);
        return parsed;
    }

private:
    const std::vector<OptionSpec>& options;
    std::vector<Slot> slots;
    std::vector<std::unique_ptr<cl::Option>> entries;
};

}  // namespace

const bool keepsAllValues = false;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<LlvmPeer>(options);
}

}  // namespace bench
