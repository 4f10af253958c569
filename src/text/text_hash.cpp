// The key that makes the hashes of one process differ from those of the next.
//
// It need not be a secret from somebody who can watch the process; only from somebody who wrote a file of arguments
// before the process began. For that, the time and an address are enough, and cost nothing to get.
#include "text/text_hash.h"

#include <chrono>

namespace vorn_3_1::internal {

namespace {

// The time, and where the system has put this process's stack. Neither changes in all of its bits from one process to
// the next, so the two are multiplied by a large odd number: that spreads what does change into the upper bits.
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
