// gflags: variables of the whole process, one name each, so the second name is a flag of its own. Flags
// cannot be taken back: options are only ever added, and cells must come in rising numbers of options.
// Keeps the last.
#include <gflags/gflags.h>

#include <deque>

#include "peer.h"

namespace bench {
namespace {

std::deque<Slot>& slots() {
    static std::deque<Slot> all;
    return all;
}

template <class Value>
void addFlag(const char* name, const char* description, Value& current) {
    static std::deque<Value> defaults;
    gflags::FlagRegisterer(name, description, "bench", &current, &defaults.emplace_back());
}

void addFlagFor(const char* name, const OptionSpec& option, Slot& slot) {
    const char* description = option.description;
    switch (option.kind) {
        case Kind::onOff:
            addFlag<bool>(name, description, slot.onOff);
            break;
        case Kind::integer:
            addFlag<gflags::int32>(name, description, slot.integer);
            break;
        case Kind::number:
            addFlag<double>(name, description, slot.number);
            break;
        case Kind::text:
        case Kind::list:
            addFlag<std::string>(name, description, slot.text);
            break;
    }
}

class GflagsPeer : public Peer {
public:
    explicit GflagsPeer(const std::vector<OptionSpec>& registered) : options(registered) {
        for (Slot& slot : slots()) {
            slot = Slot();
        }
        while (slots().size() < options.size()) {
            const OptionSpec& option = options[slots().size()];
            Slot& slot = slots().emplace_back();
            addFlagFor(option.name, option, slot);
            addFlagFor(option.alias, option, slot);
        }
    }

    bool parse(CommandLine& line, Tally* found) override {
        int count = line.argc();
        char** arguments = line.argv.data();
        gflags::ParseCommandLineNonHelpFlags(&count, &arguments, false);
        if (found != nullptr) {
            const std::vector<Slot> copy(slots().begin(), slots().begin() + std::ptrdiff_t(options.size()));
            *found = tallyOf(options, copy);
        }
        return true;  // ends the process otherwise
    }

private:
    const std::vector<OptionSpec>& options;
};

std::unique_ptr<Peer> make(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<GflagsPeer>(options);
}

}  // namespace

PeerInfo gflagsPeer() { return {"gflags", "the last", false, false, false, anyNumber, make}; }

}  // namespace bench
