// Word wrapping against its plain form. The first bytes are the prefix's length, the indent and the width; prefix and
// text follow.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "core/basic_parser.h"
#include "fuzz/plain_rules.h"

namespace {

template <class Wrap>
std::string outcome(Wrap wrap) {
    try {
        return wrap();
    } catch (const std::out_of_range&) {
        return "no room";
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const std::string rest(data + 3, data + size);
    const std::string prefix = rest.substr(0, data[0]);
    const std::string text = rest.substr(prefix.size());
    const unsigned indent = data[1];
    const unsigned width = data[2];
    const std::string actual =
        outcome([&] { return vorn_3_1::BasicParser::paragraphString(text, prefix, indent, width); });
    const std::string expected = outcome([&] { return vorn_tests::paragraph(text, prefix, indent, width); });
    vorn_tests::require(actual == expected, "wrapping", actual + "---\n" + expected);
    return 0;
}
