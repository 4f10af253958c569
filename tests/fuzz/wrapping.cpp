// Word wrapping against its plain form. The first bytes are the prefix's length, the indent and the width; prefix and
// text follow.
#include <cstddef>
#include <cstdint>
#include <string>

#include "parser/basic_parser.h"
#include "support/plain_rules.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const std::string rest(data + 3, data + size);
    const std::string prefix = rest.substr(0, data[0]);
    const std::string text = rest.substr(prefix.size());
    const auto outcomeOf = [&](auto wrap) {
        return vorn_tests::outcomeOf(wrap, text, prefix, data[1], data[2]);
    };
    const std::string actual = outcomeOf(vorn_3_1::BasicParser::paragraphString);
    const std::string expected = outcomeOf(vorn_tests::paragraph);
    vorn_tests::require(actual == expected, "wrapping", actual + "---\n" + expected);
    return 0;
}
