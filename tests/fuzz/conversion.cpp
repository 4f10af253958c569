// Conversion against string streams. The first byte selects the type, eight bytes are a number to write,
// and the rest is a text to read.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "options/option_description.h"
#include "support/plain_rules.h"
#include "text/number_text.h"

using namespace vorn_3_1::internal;
using tamsu2::variant_t;

namespace {

template <class Number>
void compare(const std::string& text, const std::uint8_t* bytes) {
    using vorn_tests::require;
    const auto expected = vorn_tests::readByStream<Number>(text, false);
    Number actual{};
    require(readNumber(text, actual) == expected.has_value(), "readable as a stream says", text);
    require(!expected || std::memcmp(&actual, &*expected, sizeof actual) == 0, "the number a stream reads",
            text);

    Garbage keeper;
    const tamsu2::qel_variant_type_t type = variant_t(Number{}).kind();
    Registration registration;
    registration.type = type;
    OptionContext context{{}, {}, &keeper};
    const OptionDescription option(registration, 0, context);
    const bool isHexadecimal = type == tamsu2::qel_uint64 && vorn_tests::isMarkedHexadecimal(text);
    const auto number = vorn_tests::readByStream<Number>(text, isHexadecimal);
    const variant_t value = option.fromString(text);
    require(number ? value == variant_t(*number) && value.kind() == type : value.kind() == tamsu2::qel_empty,
            "the value of the text", text);

    Number written{};
    std::memcpy(&written, bytes, sizeof written);
    const std::string plain = vorn_tests::writtenByStream(written);
    require(writeNumber(written) == plain, "the text of a number", plain);
    require(option.toString(&keeper, variant_t(written)) == plain, "the text of a value", plain);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 9) return 0;
    const std::string text(std::string(data + 9, data + size).c_str());
    const std::uint8_t bit[] = {static_cast<std::uint8_t>(data[1] & 1)};
    constexpr decltype(&compare<int>) comparisons[] = {
        compare<bool>,  compare<int>, compare<unsigned int>, compare<long long>, compare<unsigned long long>,
        compare<double>};
    const unsigned type = std::min(data[0] & 7u, 5u);
    comparisons[type](text, type == 0 ? bit : data + 1);
    return 0;
}
