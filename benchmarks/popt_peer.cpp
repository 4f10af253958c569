// popt: a table; numbers are converted into variables, texts are handed out as copies. Keeps the last.
#include <popt.h>

#include <cstdlib>

#include "peer.h"

namespace bench {
namespace {

struct Free {
    void operator()(char* text) const { std::free(text); }
};

struct PoptSlot {
    int onOff = 0;
    int integer = 0;
    double number = 0;
    std::unique_ptr<char, Free> text;
};

class PoptPeer : public Peer {
public:
    explicit PoptPeer(const std::vector<OptionSpec>& registered)
        : options(registered), slots(registered.size()) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            poptOption entry = entryFor(index);
            entry.longName = options[index].name;
            table.push_back(entry);
            entry.longName = options[index].alias;
            table.push_back(entry);
        }
        table.push_back(poptOption{});
    }

    bool parse(CommandLine& line, Tally* found) override {
        const char** arguments = const_cast<const char**>(line.argv.data());
        poptContext context = poptGetContext("bench", line.argc(), arguments, table.data(), 0);
        int code = 0;
        while ((code = poptGetNextOpt(context)) > 0) {
            slots[static_cast<std::size_t>(code - 1)].text.reset(poptGetOptArg(context));
        }
        poptFreeContext(context);
        if (found != nullptr) {
            *found = tally();
        }
        return code == -1;
    }

private:
    poptOption entryFor(std::size_t index) {
        PoptSlot& slot = slots[index];
        poptOption entry{};
        entry.descrip = options[index].description;
        switch (options[index].kind) {
            case Kind::onOff:
                entry.argInfo = POPT_ARG_NONE;
                entry.arg = &slot.onOff;
                break;
            case Kind::integer:
                entry.argInfo = POPT_ARG_INT;
                entry.arg = &slot.integer;
                break;
            case Kind::number:
                entry.argInfo = POPT_ARG_DOUBLE;
                entry.arg = &slot.number;
                break;
            case Kind::text:
            case Kind::list:
                // Through a pointer, every repetition would lose the copy made before.
                entry.argInfo = POPT_ARG_STRING;
                entry.val = static_cast<int>(index) + 1;
                break;
        }
        return entry;
    }

    Tally tally() const {
        std::vector<Slot> plain;
        for (const PoptSlot& slot : slots) {
            plain.push_back({slot.onOff != 0, slot.integer, slot.number, slot.text ? slot.text.get() : ""});
        }
        return tallyOf(options, plain);
    }

    const std::vector<OptionSpec>& options;
    std::vector<PoptSlot> slots;
    std::vector<poptOption> table;
};

std::unique_ptr<Peer> make(const std::vector<OptionSpec>& options, Form) {
    return std::make_unique<PoptPeer>(options);
}

}  // namespace

PeerInfo poptPeer() { return {"popt", "the last", false, false, false, anyNumber, make}; }

}  // namespace bench
