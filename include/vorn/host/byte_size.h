// Sizes in bytes as values: 512, 10M, 4KiB.
#ifndef VORN_HOST_BYTE_SIZE_H
#define VORN_HOST_BYTE_SIZE_H

#if __cplusplus >= 201703L

#include <string>
#include <string_view>

#include "vorn/host/type.h"

namespace vorn_3_1::host {

/// A number of bytes. k, M, G and T are powers of 1000, also with a B behind; Ki, Mi, Gi and Ti those of 1024.
struct ByteSize {
    unsigned long long bytes = 0;

    friend bool operator==(ByteSize left, ByteSize right) { return left.bytes == right.bytes; }
    friend bool operator!=(ByteSize left, ByteSize right) { return left.bytes != right.bytes; }
    friend bool operator<(ByteSize left, ByteSize right) { return left.bytes < right.bytes; }
};

template <>
struct Type<ByteSize> {
    static std::string read(std::string_view text, ByteSize& value);
    static std::string show(const ByteSize& value);
    static const char* metavar() { return "SIZE"; }
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
