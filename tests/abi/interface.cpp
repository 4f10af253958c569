// Compiled by scripts/check-abi, which has the compiler print how it lays out what hosts see.
#include "vorn/vorn.h"

using namespace vorn_3_1;
using tamsu2::variant_t;

static_assert(unknownIsError == 2 && positionalAfterTerminator == 4 && hyphenNotPositional == 8 &&
                  positionalRepeat == 16,
              "");
static_assert(tamsu2::qel_bool == 0 && tamsu2::qel_int == 6 && tamsu2::qel_uint == 7 &&
                  tamsu2::qel_int64 == 8,
              "");
static_assert(tamsu2::qel_uint64 == 9 && tamsu2::qel_double == 11 && tamsu2::qel_string == 12 &&
                  tamsu2::qel_wstring == 13,
              "");
static_assert(tamsu2::qel_string_ref == 14 && tamsu2::qel_wstring_ref == 15 && tamsu2::qel_block == 16, "");
static_assert(tamsu2::qel_empty == 17, "");

// The linker's names do not say what a function returns.
int (*const factory)(IParser**, int) = createParser;
Value (*const query)(IParseResult*, const char*, int, int) = getLastValue;

// Records and tables of slots are laid out where somebody needs them.
static_assert(sizeof(Value) > sizeof(variant_t), "");
void variant_t::allocator_t::release(void*) {}
struct Handler : EventHandler {
    Handler();
};
struct Option : IOption {
    Option();
};
struct Result : IParseResult {
    Result();
};
struct Parser : IParser {
    Parser();
};
Handler::Handler() {}
Option::Option() {}
Result::Result() {}
Parser::Parser() {}
