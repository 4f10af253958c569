// This library behind the face of the peers, and what the questions asked of us alone need besides.
#ifndef BENCHMARKS_VORN_PEER_H
#define BENCHMARKS_VORN_PEER_H

#include <memory>

#include "peer.h"
#include "vorn/vorn.h"

namespace bench {

struct Destroy {
    template <class Object>
    void operator()(Object* object) const {
        object->destroy();
    }
};
using ParserHandle = std::unique_ptr<vorn_3_1::IParser, Destroy>;
using ResultHandle = std::unique_ptr<vorn_3_1::IParseResult, Destroy>;

/// A parser with the options; lists are cut at ',', everything else is taken whole.
ParserHandle registerOn(const std::vector<OptionSpec>& options);

ResultHandle newResult(vorn_3_1::IParser& parser);

/// Reads every value of every option. Every other option is asked for by its second name.
Tally readAll(vorn_3_1::IParseResult& result, const std::vector<OptionSpec>& options);

PeerInfo vornPeer();

}  // namespace bench

#endif
