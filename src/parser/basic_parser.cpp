// What a parser does beside parsing and writing help: its making, its results, registering, handlers, the last error.
// Each operation hands the work on to the part that does it, and turns what that throws into a code:
//
//     parser->option(...)        RegisteredOptionStorage::option, which throws nothing
//     parser->createResult(&r)   0, or 3 where there is no memory
//     parser->getErrorDesc()     a copy of the last error that stays as long as the parser
#include "parser/basic_parser.h"

#include <exception>

#include "result/parse_result.h"

namespace vorn_3_1 {

namespace {

// Room for every fixed error text, so that reporting that memory ran out needs none.
constexpr std::size_t roomForFixedErrors = 64;

}  // namespace

BasicParser::BasicParser(int parserFlags) : storage(&garbage), flags(parserFlags), handlers(garbage) {
    lastError.reserve(roomForFixedErrors);
}

bool BasicParser::onOptionParse(const char* name) { return handlers.onOptionParse(name); }

bool BasicParser::onValueParse(const char* name, const Value& value) {
    return handlers.onValueParse(name, value);
}

bool BasicParser::onUknownArgument(const char* argument) { return handlers.onUknownArgument(argument); }

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
    if (handler == this) return false;  // every event would lead to itself
    try {
        return handlers.add(handler);
    } catch (const std::exception&) {
        return false;
    }
}

bool BasicParser::removeHandler(EventHandler* handler) { return handlers.remove(handler); }

void BasicParser::setLastError(std::string_view text) { lastError = text; }

// Without handlers nobody is to be called, and a recogniser that knows it takes shorter ways.
internal::RecogniserContext BasicParser::recogniserContext(int recogniserFlags) {
    return {handlers.empty() ? nullptr : &handlers, &garbage, recogniserFlags};
}

}  // namespace vorn_3_1
