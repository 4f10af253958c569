#include "heap.h"

#include <malloc.h>

#include <algorithm>

namespace {

bool counting = false;
bench::HeapUse use;

void* taken(void* block) {
    if (counting && block != nullptr) {
        ++use.calls;
        use.bytes += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
        use.mostBytes = std::max(use.mostBytes, use.bytes);
    }
    return block;
}

void given(void* block) {
    if (counting && block != nullptr) use.bytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(block));
}

}  // namespace

// The program's definitions take the place of the C library's, for all shared libraries, too. Blocks from the aligned
// functions, which stay the C library's, are given back here like any other.
extern "C" {

void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t bytes) { return taken(__libc_malloc(bytes)); }

void* calloc(std::size_t count, std::size_t bytes) { return taken(__libc_calloc(count, bytes)); }

void* realloc(void* block, std::size_t bytes) {
    given(block);
    return taken(__libc_realloc(block, bytes));
}

void free(void* block) {
    given(block);
    __libc_free(block);
}

}  // extern "C"

namespace bench {

void startHeapCount() {
    use = HeapUse();
    counting = true;
}

HeapUse stopHeapCount() {
    counting = false;
    return use;
}

}  // namespace bench
