// Between texts and typed values. The option's type alone decides:
//
//     type                  from a text            to a text     in messages
//     qel_bool              "1"                    "1"           undefined
//     qel_int, qel_uint     "12", "12abc"          "12"          integer, unsigned integer
//     qel_int64             "-12"                  "-12"         64 bit integer
//     qel_uint64            "12", "0xC", "Ch"      "12"          unsigned 64 bit or hex
//     qel_double            "1.5"                  "1.5"         double
//     qel_string            any                    itself        string
//     any other             none                   ""            (nothing)
//
// Validation converts what the user typed. The result store and the help write defaults and allowed values.
#include <string>
#include <string_view>

#include "options/option_description.h"
#include "text/number_text.h"

namespace vorn_3_1::internal {

namespace {

// Sets the value, or leaves it as it was when the text is no such number.
template <class Number>
bool readInto(tamsu2::variant_t& value, std::string_view text,
              bool (*read)(std::string_view, Number&) = readNumber<Number>) {
    Number number{};
    if (!read(text, number)) return false;
    value = tamsu2::variant_t(number);
    return true;
}

// A value of another kind than the type converts by value between numbers; a text where there is none is "".
std::string textOf(tamsu2::qel_variant_type_t type, const tamsu2::variant_t& value) {
    switch (type) {
        case tamsu2::qel_bool:
            return writeNumber(value.asBool());
        case tamsu2::qel_int:
            return writeNumber(value.asInt());
        case tamsu2::qel_uint:
            return writeNumber(value.asUInt());
        case tamsu2::qel_int64:
            return writeNumber(value.asInt64());
        case tamsu2::qel_uint64:
            return writeNumber(value.asUInt64());
        case tamsu2::qel_double:
            return writeNumber(value.asDouble());
        case tamsu2::qel_string:
            return value.asString() == nullptr ? "" : value.asString();
        default:
            return "";
    }
}

}  // namespace

std::string OptionDescription::getTypeName() const {
    switch (type()) {
        case tamsu2::qel_bool:
            return "undefined";  // kept on purpose
        case tamsu2::qel_int:
            return "integer";
        case tamsu2::qel_uint:
            return "unsigned integer";
        case tamsu2::qel_int64:
            return "64 bit integer";
        case tamsu2::qel_uint64:
            return "unsigned 64 bit or hex";
        case tamsu2::qel_double:
            return "double";
        case tamsu2::qel_string:
            return "string";
        default:
            return "";
    }
}

tamsu2::variant_t OptionDescription::fromString(std::string_view text) const {
    tamsu2::variant_t value;
    convert(text.substr(0, text.find('\0')), value);
    return value;
}

// A switch that was named gets here as "1" or "0": the recogniser of names makes them of the two forms.
bool OptionDescription::convert(std::string_view text, tamsu2::variant_t& value) const {
    switch (type()) {
        case tamsu2::qel_bool:
            return readInto<bool>(value, text);
        case tamsu2::qel_int:
            return readInto<int>(value, text);
        case tamsu2::qel_uint:
            return readInto<unsigned int>(value, text);
        case tamsu2::qel_int64:
            return readInto<long long>(value, text);
        case tamsu2::qel_uint64:
            return readInto<unsigned long long>(value, text, readNumberOrHexadecimal);
        case tamsu2::qel_double:
            return readInto<double>(value, text);
        case tamsu2::qel_string:
            value = tamsu2::variant_t(std::string(text).c_str());
            return true;
        default:
            return false;
    }
}

const char* OptionDescription::toString(Garbage* target, const tamsu2::variant_t& value) const {
    return target->init(textOf(type(), value).c_str());
}

}  // namespace vorn_3_1::internal
