#include "parser/basic_parser.h"

#include <exception>

#include "result/parse_result.h"

namespace vorn_3_1 {

namespace {

// Room for every fixed error text, so that reporting that memory ran out needs none.
constexpr std::size_t roomForFixedErrors = 64;

template <class Event>
bool falseOnException(Event event) {
    try {
        return event();
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

BasicParser::BasicParser(int parserFlags) : storage(&garbage), flags(parserFlags), handlers(garbage) {
    lastError.reserve(roomForFixedErrors);
}

bool BasicParser::onOptionParse(const char* name) {
    return falseOnException([&] { return handlers.onOptionParse(name); });
}

bool BasicParser::onValueParse(const char* name, const Value& value) {
    return falseOnException([&] { return handlers.onValueParse(name, value); });
}

bool BasicParser::onUknownArgument(const char* argument) {
    return falseOnException([&] { return handlers.onUknownArgument(argument); });
}

void BasicParser::destroy() { delete this; }

int BasicParser::createResult(IParseResult** out) {
    if (out == nullptr) return internal::exceptionCaught;
    try {
        *out = new internal::ParseResult;
        return 0;
    } catch (const std::exception&) {
        return internal::exceptionCaught;
    }
}

IOption* BasicParser::option(const char* optionNames, const char* description,
                             tamsu2::qel_variant_type_t type, const char* group) {
    return storage.option(optionNames, description, type, group);
}

const char* BasicParser::getErrorDesc() {
    try {
        return garbage.init(lastError.c_str());
    } catch (const std::exception&) {
        return "";
    }
}

bool BasicParser::addHandler(EventHandler* handler) {
    return falseOnException([&] { return handlers.add(handler); });
}

bool BasicParser::removeHandler(EventHandler* handler) { return handlers.remove(handler); }

void BasicParser::setLastError(std::string_view text) { lastError = text; }

internal::RecogniserContext BasicParser::recogniserContext(int recogniserFlags) {
    return {handlers.empty() ? nullptr : &handlers, &garbage, recogniserFlags};
}

}  // namespace vorn_3_1
