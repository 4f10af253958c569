// Between texts and typed values. The option's type alone decides: typedOperation calls an operation's
// execute for the C type that stands behind it.
#include <string_view>
#include <type_traits>

#include "options/option_description.h"
#include "text/number_text.h"

namespace vorn_3_1::internal {

namespace {

template <class Type>
using As = std::type_identity<Type>;

// The form decides on the base: "0x" and hexadecimal digits, or hexadecimal digits and "h".
Base baseOf(std::string_view text) {
    const auto isHexadecimal = [](std::string_view digits) {
        return digits.find_first_not_of("1234567890ABCDEFabcdef") == std::string_view::npos;
    };
    if ((text.starts_with("0x") || text.starts_with("0X")) && isHexadecimal(text.substr(2))) {
        return Base::hexadecimal;
    }
    if ((text.ends_with('h') || text.ends_with('H')) && isHexadecimal(text.substr(0, text.size() - 1))) {
        return Base::hexadecimal;
    }
    return Base::decimal;
}

// Fills the target, or leaves it as it was when the text is no value of the type.
struct OperationFromString {
    std::string_view text;
    tamsu2::variant_t& target;

    template <class Number>
    bool execute(As<Number>) {
        return read<Number>(Base::decimal);
    }
    bool execute(As<unsigned long long>) { return read<unsigned long long>(baseOf(text)); }
    bool execute(As<const char*>) {
        target = tamsu2::variant_t(std::string(text).c_str());
        return true;
    }

private:
    template <class Number>
    bool read(Base base) {
        Number number{};
        if (!readNumber(text, base, number)) return false;
        target = tamsu2::variant_t(number);
        return true;
    }
};

// A value of another kind converts by value between numbers; a text where there is none is "".
struct OperationToString {
    const tamsu2::variant_t& value;
    std::string text;

    bool execute(As<bool>) { return write(value.asBool()); }
    bool execute(As<int>) { return write(value.asInt()); }
    bool execute(As<unsigned int>) { return write(value.asUInt()); }
    bool execute(As<long long>) { return write(value.asInt64()); }
    bool execute(As<unsigned long long>) { return write(value.asUInt64()); }
    bool execute(As<double>) { return write(value.asDouble()); }
    bool execute(As<const char*>) {
        const char* source = value.asString();
        if (source != nullptr) text = source;
        return true;
    }

private:
    template <class Number>
    bool write(Number number) {
        text = writeNumber(number);
        return true;
    }
};

struct OperatorGetTypeName {
    std::string name;

    bool execute(As<bool>) { return set("undefined"); }  // Kept on purpose.
    bool execute(As<int>) { return set("integer"); }
    bool execute(As<unsigned int>) { return set("unsigned integer"); }
    bool execute(As<long long>) { return set("64 bit integer"); }
    bool execute(As<unsigned long long>) { return set("unsigned 64 bit or hex"); }
    bool execute(As<double>) { return set("double"); }
    bool execute(As<const char*>) { return set("string"); }

private:
    bool set(const char* typeName) {
        name = typeName;
        return true;
    }
};

}  // namespace

template <class Operation>
bool OptionDescription::typedOperation(Operation& operation) const {
    switch (type()) {
        case tamsu2::qel_bool:
            return operation.execute(As<bool>{});
        case tamsu2::qel_int:
            return operation.execute(As<int>{});
        case tamsu2::qel_uint:
            return operation.execute(As<unsigned int>{});
        case tamsu2::qel_int64:
            return operation.execute(As<long long>{});
        case tamsu2::qel_uint64:
            return operation.execute(As<unsigned long long>{});
        case tamsu2::qel_double:
            return operation.execute(As<double>{});
        case tamsu2::qel_string:
            return operation.execute(As<const char*>{});
        default:
            return false;
    }
}

std::string OptionDescription::getTypeName() const {
    OperatorGetTypeName operation;
    typedOperation(operation);
    return operation.name;
}

tamsu2::variant_t OptionDescription::fromString(std::string_view text) const {
    tamsu2::variant_t value;
    convert(text.substr(0, text.find('\0')), value);
    return value;
}

bool OptionDescription::convert(std::string_view text, tamsu2::variant_t& value) const {
    OperationFromString operation{text, value};
    return typedOperation(operation);
}

const char* OptionDescription::toString(Garbage* textKeeper, const tamsu2::variant_t& value) const {
    OperationToString operation{value, {}};
    typedOperation(operation);
    return textKeeper->init(operation.text.c_str());
}

}  // namespace vorn_3_1::internal
