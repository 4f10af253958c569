#include "options/option_description.h"

#include <gtest/gtest.h>

#include "options/registered_option_storage.h"

namespace vorn_3_1::internal {

TEST(OptionDescription, copiesAreSnapshots) {
    Garbage keeper;
    RegisteredOptionStorage storage(&keeper);
    IOption* builder = storage.option("a,b", "text", tamsu2::qel_string, "");
    builder->allowValue("x")->defaultValue("x");
    const OptionDescription& original = storage.description(0);
    const OptionDescription copy = original;
    const auto expectState = [](const OptionDescription& option, bool isShaped) {
        EXPECT_EQ(option.names().size(), isShaped ? 3u : 2u);
        EXPECT_EQ(option.names().back().text, isShaped ? "c" : "b");
        EXPECT_EQ(option.allowedValues().size(), isShaped ? 2u : 1u);
        EXPECT_STREQ(option.defaultValue().asString(), isShaped ? "y" : "x");
        EXPECT_EQ(option.tokenizer(), isShaped ? ';' : ',');
        EXPECT_EQ(option.isPositional(), isShaped);
    };
    expectState(copy, false);
    builder->synonym("c")->allowValue("y")->defaultValue("y")->tokenize(';')->positional();
    expectState(copy, false);
    expectState(original, true);
    EXPECT_NE(copy.nameListId(), original.nameListId());
}

}  // namespace vorn_3_1::internal
