// The face behind which every parser is measured, ours included. Each program has one of them: asked in processes of
// their own, parsers that register with the whole process disturb nobody.
#ifndef BENCHMARKS_PEER_H
#define BENCHMARKS_PEER_H

#include <memory>
#include <string>
#include <vector>

#include "workload.h"

namespace bench {

/// A parser with registered options. Its destruction counts as part of registering it.
class Peer {
public:
    /// One whole parse, from nothing to a result and back: whatever a user of the parser makes afresh for each command
    /// line is made and destroyed in here. Fills `found` when it is not null, which is never so while time is taken,
    /// and at most in a peer's first parse. False when the parser refuses the line.
    virtual bool parse(CommandLine& line, Tally* found) = 0;

    virtual ~Peer() = default;
};

/// Registers all options, which live longer than the peer. Form::prefix says that names may be shortened.
std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form form);

/// Which of a command line's two tallies the peer must give.
extern const bool keepsAllValues;

/// What parsers that keep the last value keep of one option. No argument on a command line says 0.
struct Slot {
    bool onOff = false;
    int integer = 0;
    double number = 0;
    std::string text;
};

/// `slots` hold one element per option; lists in them are still in one piece.
Tally tallyOf(const std::vector<OptionSpec>& options, const std::vector<Slot>& slots);

}  // namespace bench

#endif
