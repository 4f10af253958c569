// Objects that stay where they are until all of them go.
//
// A result keeps what was given in pools, one for each kind of object:
//
//     Pool<Occurrence> occurrences;
//     Occurrence& first = occurrences.add(position, nullptr);     good as long as the pool
//
// A vector would move its objects when it grows, and the chains that link them would break. An allocation for each
// object would cost more time and more memory.
//
//     newest --> 32 objects, some in use --> 16, all in use --> 8, all in use
#ifndef VORN_TEXT_POOL_H
#define VORN_TEXT_POOL_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace vorn_3_1::internal {

/// Gives its objects stable addresses, in blocks that grow with their number up to a limit: few
/// allocations for many objects, and little room lost by few.
/// std::deque would allocate for each empty pool of a result, and cost every argument a tenth more.
template <class Object>
class Pool {
public:
    Pool() = default;
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() {
        for (Block* block = newest; block != nullptr;) {
            std::destroy_n(block->objects(), block->used);
            ::operator delete(std::exchange(block, block->older));
        }
    }

    /// Makes an object and returns it. It is counted only when it is made: if its constructor throws, the pool is as
    /// it was.
    template <class... Arguments>
    Object& add(Arguments&&... arguments) {
        if (newest == nullptr || newest->used == newest->size) addBlock();
        Object* place = newest->objects() + newest->used;
        auto* object = ::new (static_cast<void*>(place)) Object{std::forward<Arguments>(arguments)...};
        ++newest->used;
        return *object;
    }

private:
    // The objects follow their block's head.
    struct alignas(Object) alignas(void*) Block {
        Block* older;
        std::size_t size;
        std::size_t used;

        Object* objects() { return reinterpret_cast<Object*>(this + 1); }
    };

    // Twice as large as the last one, so that many objects need few blocks. The limit keeps what may stay empty in the
    // newest block small.
    void addBlock() {
        const std::size_t size = newest == nullptr ? smallest : std::min(newest->size * 2, largest);
        newest = ::new (::operator new(sizeof(Block) + size * sizeof(Object))) Block{newest, size, 0};
    }

    static constexpr std::size_t smallest = 8;
    static constexpr std::size_t largest = 128;

    Block* newest = nullptr;
};

}  // namespace vorn_3_1::internal

#endif
