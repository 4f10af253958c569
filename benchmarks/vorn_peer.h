// What the questions that are asked of us alone share with vorn_peer.cpp.
#ifndef BENCHMARKS_VORN_PEER_H
#define BENCHMARKS_VORN_PEER_H

#include <memory>

#include "vorn/vorn.h"
#include "workload.h"

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
ParserHandle registerOn(const Options& options);

ParserHandle newParser();
ResultHandle newResult(vorn_3_1::IParser& parser);

}  // namespace bench

#endif
