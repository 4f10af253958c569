// The companion: what a host's author works with. It needs C++17 and the library vorn::host.
//
//     #include "vorn/host.h"
//     namespace host = vorn::host;
//
//     int main(int argc, char** argv) {
//         host::Parser parser("thumbs", "Makes small copies of images.");
//         const auto quality = parser.add<int>("quality,q", "How good they look.").range(1, 100).defaultTo(80).key();
//         const auto images = parser.addPositional<std::string>("image", "Pictures to read.").atLeast(1).key();
//         const host::Result result = parser.parseOrExit(argc, argv);
//         for (const std::string& image : result[images]) shrink(image, result[quality]);
//     }
//
// Types that cost a heavy header are taught in headers of their own: host/path.h, host/duration.h, host/byte_size.h.
#ifndef VORN_HOST_H
#define VORN_HOST_H

// Below C++17 there is nothing here but a message for whoever uses it, so that a host that merely includes every
// header compiles.
#if __cplusplus >= 201703L

#include "vorn/host/error.h"
#include "vorn/host/key.h"
#include "vorn/host/option.h"
#include "vorn/host/parser.h"
#include "vorn/host/result.h"
#include "vorn/host/type.h"

namespace vorn = vorn_3_1;

#else

namespace vorn_3_1 {
namespace host {

template <bool isCxx17>
struct CompanionHeader {
    static_assert(isCxx17, "vorn/host.h needs C++17; below it, use vorn/vorn.h");
};
using Parser = CompanionHeader<false>;

}  // namespace host
}  // namespace vorn_3_1

namespace vorn = vorn_3_1;

#endif  // C++17

#endif
