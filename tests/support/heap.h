// Replaces the allocation functions of the test that includes it: what lives is counted, and requests may fail, each
// in turn.
#ifndef VORN_TESTS_SUPPORT_HEAP_H
#define VORN_TESTS_SUPPORT_HEAP_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include "support/checked_build.h"

// Every so many requests one fails.
constexpr unsigned requestsBetween = vorn_tests::isChecked ? 7 : 1;

static struct {
    bool isArmed = false;    // inside a call into the library
    bool mayFail = false;    // not while a step is repeated
    bool isLasting = false;  // all requests after the failing one fail, too
    unsigned countdown = 0;  // requests until one fails
    unsigned failures = 0;
    std::size_t live = 0;  // bytes
} memory;

// The largest alignment of any type in the build of the standard library; another compiler's own may be less.
constexpr std::size_t headBytes = 16;
static_assert(headBytes >= alignof(std::max_align_t));

// All other forms end in these. Every block begins with its size.
void* operator new(std::size_t bytes) {
    if (memory.isArmed && memory.mayFail && (memory.countdown == 0 || --memory.countdown == 0) &&
        (memory.isLasting || memory.failures == 0)) {
        ++memory.failures;
        throw std::bad_alloc();
    }
    auto* head = static_cast<std::size_t*>(std::malloc(headBytes + bytes));
    if (head == nullptr) throw std::bad_alloc();
    *head = bytes;
    memory.live += bytes;
    return reinterpret_cast<char*>(head) + headBytes;
}

void operator delete(void* block) noexcept {
    if (block == nullptr) return;
    void* head = static_cast<char*>(block) - headBytes;
    memory.live -= *static_cast<std::size_t*>(head);
    std::free(head);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

// Arenas of the standard library ask with an alignment. Every block here is aligned as malloc aligns.
void* operator new(std::size_t bytes, std::align_val_t alignment) {
    if (static_cast<std::size_t>(alignment) > headBytes) std::abort();
    return operator new(bytes);
}

void operator delete(void* block, std::align_val_t) noexcept { operator delete(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { operator delete(block); }

// Ends in the others as well, but not with the address checks, whose own one does not.
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    try {
        return operator new(bytes);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

/// Lives a life undisturbed, to fill in its outcomes. Then fails one allocation after the other, first alone and then
/// with all later ones, until there are no more.
template <class Life>
void failEachAllocation(Life life) {
    std::streambuf* const output = std::cout.rdbuf(nullptr);
    std::streambuf* const errors = std::cerr.rdbuf(nullptr);
    std::vector<std::string> outcomes;
    memory.failures = 0;
    life(outcomes);
    memory.mayFail = true;
    unsigned points = 0;
    for (const bool isLasting : {false, true}) {
        memory.isLasting = isLasting;
        memory.failures = 1;
        for (unsigned failing = 1; memory.failures > 0 && !testing::Test::HasFailure();
             failing += requestsBetween) {
            memory.countdown = failing;
            memory.failures = 0;
            const std::size_t before = memory.live;
            life(outcomes);
            EXPECT_EQ(memory.live, before);
            EXPECT_FALSE(testing::Test::HasFailure()) << "request " << failing << ", lasting: " << isLasting;
            if (memory.failures > 0) ++points;
        }
    }
    memory.mayFail = false;
    std::cout.rdbuf(output);
    std::cerr.rdbuf(errors);
    std::cout << "points of failure: " << points << std::endl;
}

#endif
