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
    /// line is made and destroyed in here. False when the parser refuses the line.
    virtual bool parse(CommandLine& line) = 0;

    virtual ~Peer() = default;
};

/// Registers all options, which live longer than the peer. Form::prefix says that names may be shortened.
std::unique_ptr<Peer> makePeer(const Options& options, Form form);

}  // namespace bench

#endif
