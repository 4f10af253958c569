// Conversion against string streams. The first byte selects type and base, eight bytes are a number to write,
// and the rest is a text to read.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>

#include "fuzz/plain_rules.h"
#include "options/number_text.h"
#include "options/option_description.h"

using namespace vorn_3_1::internal;
using tamsu2::variant_t;

namespace {

template <class Number>
bool readPlainly(const std::string& text, Base base, Number& number) {
    std::istringstream stream(text);
    if (base == Base::hexadecimal) stream >> std::hex;
    stream >> number;
    return !stream.fail() && !stream.bad();
}

template <class Number>
std::string writtenPlainly(Number number) {
    std::ostringstream stream;
    stream << number;
    return stream.str();
}

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

OptionDescription optionOf(tamsu2::qel_variant_type_t type, Garbage& keeper) {
    Registration registration;
    registration.type = type;
    return {registration, &keeper, {}};
}

template <class Number>
void compare(const std::string& text, const std::uint8_t* bytes, Base base) {
    using vorn_tests::require;
    Number expected{};
    const bool readable = readPlainly(text, base, expected);
    Number actual{};
    require(readNumber(text.c_str(), base, actual) == readable, "readable as a stream says", text);
    require(!readable || std::memcmp(&actual, &expected, sizeof actual) == 0, "the number a stream reads",
            text);

    Garbage keeper;
    const tamsu2::qel_variant_type_t type = variant_t(Number{}).kind();
    const OptionDescription option = optionOf(type, keeper);
    expected = {};
    const bool valid = readPlainly(text, plainBase(text, type), expected);
    const variant_t value = option.fromString(text.c_str());
    require(valid ? value == variant_t(expected) && value.kind() == type : value.kind() == tamsu2::qel_empty,
            "the value of the text", text);

    Number number{};
    std::memcpy(&number, bytes, sizeof number);
    require(writeNumber(number) == writtenPlainly(number), "the text of a number", writtenPlainly(number));
    require(option.toString(&keeper, variant_t(number)) == writtenPlainly(number), "the text of a value");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 9) return 0;
    const std::string text(std::string(data + 9, data + size).c_str());
    const Base base = (data[0] & 8) != 0 ? Base::hexadecimal : Base::decimal;
    std::uint8_t bit[8] = {static_cast<std::uint8_t>(data[1] & 1)};
    switch (data[0] & 7) {
        case 0:
            compare<bool>(text, bit, base);
            break;
        case 1:
            compare<int>(text, data + 1, base);
            break;
        case 2:
            compare<unsigned int>(text, data + 1, base);
            break;
        case 3:
            compare<long long>(text, data + 1, base);
            break;
        case 4:
            compare<unsigned long long>(text, data + 1, base);
            break;
        default:
            compare<double>(text, data + 1, base);
            break;
    }
    return 0;
}
