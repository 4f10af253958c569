// Counts the calls of malloc, which is where operator new and every other allocator end.
#ifndef BENCHMARKS_HEAP_H
#define BENCHMARKS_HEAP_H

#include <cstddef>

namespace bench {

extern std::size_t heapCalls;

}  // namespace bench

#endif
