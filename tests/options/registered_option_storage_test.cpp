// What the registry's fallback tells about the last registration.
#include "options/registered_option_storage.h"

#include <gtest/gtest.h>

namespace vorn_3_1::internal {

TEST(RegisteredOptionStorage, theFallbackHoldsTheReasonOfARefusal) {
    Garbage keeper;
    RegisteredOptionStorage storage(&keeper);
    const auto registered = [&storage](const char* names) {
        return static_cast<OptionDescription*>(storage.option(names, "", tamsu2::qel_bool, ""));
    };
    const OptionDescription* fallback = registered("a,b,c,d");
    EXPECT_EQ(fallback->status, 1);
    EXPECT_EQ(registered("x")->status, 0);
    EXPECT_EQ(fallback->status, 3);
    EXPECT_EQ(registered("y,no-x"), fallback);
    EXPECT_EQ(fallback->status, 1);
}

}  // namespace vorn_3_1::internal
