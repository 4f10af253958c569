// Conversion against string streams. The first byte selects type and base, eight bytes are a number to write,
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

bool onlyHexadecimal(const std::string& text) {
    return text.find_first_not_of("1234567890ABCDEFabcdef") == std::string::npos;
}

Base plainBase(const std::string& text, tamsu2::qel_variant_type_t type) {
    if (type != tamsu2::qel_uint64 || text.empty()) return Base::decimal;
    const std::string front = text.substr(0, 2);
    if ((front == "0x" || front == "0X") && onlyHexadecimal(text.substr(2))) return Base::hexadecimal;
    const bool marked = text.back() == 'h' || text.back() == 'H';
    return marked && onlyHexadecimal(text.substr(0, text.size() - 1)) ? Base::hexadecimal : Base::decimal;
}

template <class Number>
void compare(const std::string& text, const std::uint8_t* bytes, Base base) {
    using vorn_tests::require;
    const auto expected = vorn_tests::readByStream<Number>(text, base == Base::hexadecimal);
    Number actual{};
    require(readNumber(text, base, actual) == expected.has_value(), "readable as a stream says", text);
    require(!expected || std::memcmp(&actual, &*expected, sizeof actual) == 0, "the number a stream reads",
            text);

    Garbage keeper;
    const tamsu2::qel_variant_type_t type = variant_t(Number{}).kind();
    Registration registration;
    registration.type = type;
    OptionContext context{{}, {}, &keeper};
    const OptionDescription option(registration, 0, context);
    const auto number = vorn_tests::readByStream<Number>(text, plainBase(text, type) == Base::hexadecimal);
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
    const Base base = (data[0] & 8) != 0 ? Base::hexadecimal : Base::decimal;
    const std::uint8_t bit[] = {static_cast<std::uint8_t>(data[1] & 1)};
    constexpr decltype(&compare<int>) comparisons[] = {
        compare<bool>,  compare<int>, compare<unsigned int>, compare<long long>, compare<unsigned long long>,
        compare<double>};
    const unsigned type = std::min(data[0] & 7u, 5u);
    comparisons[type](text, type == 0 ? bit : data + 1, base);
    return 0;
}
