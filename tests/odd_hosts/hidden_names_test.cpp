// A host that hides every name it declares. What it links against has to stay visible to it.
#include <gtest/gtest.h>

#include <new>

#pragma GCC visibility push(hidden)
#include "vorn/vorn.h"

namespace vorn_3_1::public_tests {

struct OwnAllocator : tamsu2::variant_t::allocator_t {};

TEST(HidingHost, linksWithTheLibrary) {
    new (static_cast<void*>(&tamsu2::variant_t::m_mem)) OwnAllocator;
    IParser* parser = nullptr;
    IParseResult* result = nullptr;
    ASSERT_EQ(createParser(&parser), 0);
    ASSERT_EQ(parser->createResult(&result), 0);
    const tamsu2::variant_t text("slow");
    parser->option("speed,s", "", tamsu2::qel_string, "")->defaultValue(text);
    ASSERT_EQ(parser->parseStream("--speed=fast", result), 0);
    const Value last = getLastValue(result, "s");
    EXPECT_TRUE(last.value == "fast" && last.value != text);
    result->destroy();
    parser->destroy();
}

}  // namespace vorn_3_1::public_tests

#pragma GCC visibility pop
