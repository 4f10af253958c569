// Counts what goes through malloc, which is where operator new and every other allocator end.
#ifndef BENCHMARKS_HEAP_H
#define BENCHMARKS_HEAP_H

#include <cstddef>

namespace bench {

struct HeapUse {
    std::size_t calls = 0;
    std::ptrdiff_t bytes = 0;      ///< As the heap rounds them, less what was given back.
    std::ptrdiff_t mostBytes = 0;  ///< The most that this was.
};

void startHeapCount();
HeapUse stopHeapCount();

}  // namespace bench

#endif
