#include "peer.h"

// Each name is a function in a file of its own; the build says which of them there are.
#define BENCH_PEERS(PEER)                                              \
    PEER(BENCH_HAS_GETOPT, getoptPeer, "getopt_long")                  \
    PEER(BENCH_HAS_POPT, poptPeer, "popt")                             \
    PEER(BENCH_HAS_CLI11, cli11Peer, "CLI11")                          \
    PEER(BENCH_HAS_CXXOPTS, cxxoptsPeer, "cxxopts")                    \
    PEER(BENCH_HAS_CXXOPTS, cxxoptsPlainPeer, "cxxopts without regex") \
    PEER(BENCH_HAS_BOOST, boostPeer, "Boost.Program_options")          \
    PEER(BENCH_HAS_GFLAGS, gflagsPeer, "gflags")                       \
    PEER(BENCH_HAS_LLVM, llvmPeer, "LLVM CommandLine")                 \
    PEER(BENCH_HAS_HAND, handPeer, "by hand")

#define BENCH_HAS_GETOPT 1
#define BENCH_HAS_HAND 1

namespace bench {

#define BENCH_DECLARE(has, function, name) PeerInfo function();
BENCH_PEERS(BENCH_DECLARE)

Tally tallyOf(const std::vector<OptionSpec>& options, const std::vector<Slot>& slots) {
    Tally tally;
    for (std::size_t index = 0; index < options.size(); ++index) {
        const Slot& slot = slots[index];
        tally.switches += slot.onOff;
        if (slot.integer != 0) {
            tally.add(slot.integer);
        }
        if (slot.number != 0) {
            tally.add(slot.number);
        }
        if (!slot.text.empty()) {
            options[index].kind == Kind::list ? tally.addList(slot.text) : tally.add(slot.text);
        }
    }
    return tally;
}

std::vector<PeerInfo> installedPeers() {
    std::vector<PeerInfo> peers;
#define BENCH_ADD(has, function, name) \
    if constexpr (has) {               \
        peers.push_back(function());   \
    }
    BENCH_PEERS(BENCH_ADD)
    return peers;
}

std::vector<const char*> missingPeers() {
    std::vector<const char*> names;
#define BENCH_MISS(has, function, name) \
    if constexpr (!has) {               \
        names.push_back(name);          \
    }
    BENCH_PEERS(BENCH_MISS)
    return names;
}

}  // namespace bench
