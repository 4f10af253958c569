// The face behind which every parser is measured, ours included. One file per parser, so that no two
// parsers' headers meet.
#ifndef BENCHMARKS_PEER_H
#define BENCHMARKS_PEER_H

#include <memory>
#include <string>
#include <vector>

#include "workload.h"

namespace bench {

/// A parser with registered options. Registered once and used for many parses; its destruction counts
/// as part of registering it.
class Peer {
public:
    /// One whole parse, from nothing to a result and back: whatever a user of the parser makes afresh
    /// for each command line is made and destroyed in here. Fills `found` when it is not null, which is
    /// never so while time is taken, and at most in a peer's first parse. False when the parser refuses the
    /// line.
    virtual bool parse(CommandLine& line, Tally* found) = 0;

    virtual ~Peer() = default;
};

struct PeerInfo {
    const char* name;
    const char* keeps;          ///< What is left of the values after a parse, for the reader.
    bool keepsAll;              ///< Which of a command line's two tallies it must give.
    bool takesPrefixes;         ///< Knows a name by its beginning.
    bool registers;             ///< Its registration can be timed: options of its own, and removable.
    std::size_t mostArguments;  ///< More would take minutes.
    /// Registers all options, which live longer than the peer. Prefix says that names may be shortened.
    std::unique_ptr<Peer> (*make)(const std::vector<OptionSpec>& options, Form form);
};

/// What parsers that keep the last value keep of one option. No argument on a command line says 0.
struct Slot {
    bool onOff = false;
    int integer = 0;
    double number = 0;
    std::string text;
};

/// `slots` hold one element per option; lists in them are still in one piece.
Tally tallyOf(const std::vector<OptionSpec>& options, const std::vector<Slot>& slots);

constexpr std::size_t anyNumber = static_cast<std::size_t>(-1);

/// All peers that this build has, ours not among them.
std::vector<PeerInfo> installedPeers();

/// Names of the peers that are not installed for this width.
std::vector<const char*> missingPeers();

}  // namespace bench

#endif
