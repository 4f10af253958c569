#include "text/text_hash.h"

#include <chrono>

namespace vorn_3_1::internal {

namespace {

// The time, and where the system has put this process's stack.
HashKey drawKey() {
    const auto time = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    const auto place = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&time));
    const std::uint64_t bits = (time ^ place << 16) * 0x9E3779B97F4A7C15u;
    return {static_cast<std::uint32_t>(bits), static_cast<std::uint32_t>(bits >> 32)};
}

}  // namespace

const HashKey& hashKey() {
    static const HashKey key = drawKey();
    return key;
}

}  // namespace vorn_3_1::internal
