#include "meter.h"

std::size_t bench::heapCalls = 0;

// The program's definitions take the place of the C library's, for all shared libraries, too.
extern "C" {

void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);

void* malloc(std::size_t bytes) {
    ++bench::heapCalls;
    return __libc_malloc(bytes);
}

void* calloc(std::size_t count, std::size_t bytes) {
    ++bench::heapCalls;
    return __libc_calloc(count, bytes);
}

void* realloc(void* block, std::size_t bytes) {
    ++bench::heapCalls;
    return __libc_realloc(block, bytes);
}

}  // extern "C"
