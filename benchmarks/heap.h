// Counting what goes through malloc, which is where operator new and every other allocator end.
#ifndef BENCHMARKS_HEAP_H
#define BENCHMARKS_HEAP_H

#include <cstddef>

namespace bench {

struct HeapUse {
    std::size_t allocations = 0;
    std::ptrdiff_t liveBytes = 0;  ///< As the heap rounds them, less what was freed.
};

/// False under a sanitizer, which has its own malloc: then nothing is counted.
bool heapIsCounted();

void startHeapCount();
HeapUse stopHeapCount();

}  // namespace bench

#endif
