// What keeps and finds texts.
#include <gtest/gtest.h>

#include "support/plain_rules.h"
#include "text/garbage.h"
#include "text/text_table.h"

namespace vorn_3_1::internal {

TEST(Garbage, keepsEqualTextsAsOnePointerForGood) {
    Garbage garbage;
    std::vector<std::string> texts;
    std::vector<const char*> kept;
    for (unsigned i = 0; i < 5000; ++i) {
        texts.push_back(std::to_string(i) + std::string(i % 7 == 0 ? i : 0, 'x'));  // small and large
        kept.push_back(garbage.init(texts.back().c_str()));
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        ASSERT_EQ(kept[i], texts[i]);
        ASSERT_EQ(kept[i], garbage.init(texts[i].c_str()));
    }
    EXPECT_EQ(garbage.init(nullptr), Garbage().init(""));  // kept by nobody
    const std::string text("0\0b", 3);
    EXPECT_EQ(garbage.keep(text), text);
    EXPECT_EQ(garbage.keep(text).data(), garbage.keep(text).data());
    EXPECT_NE(garbage.keep(text).data(), garbage.init("0"));
}

TEST(TextTable, tellsTextsApartWhateverTheirHashes) {
    struct Entry {
        std::string_view key() const { return text; }
        std::string_view text;
    };
    const std::vector<std::string> texts = vorn_tests::allTexts("abc", 7);
    for (const std::uint32_t hashes : {16u, 5000u, ~0u}) {
        const auto hashIn = [hashes](const std::string& text) { return ~(hashOf(text) % hashes); };
        TextTable<Entry> table;
        for (const std::string& text : texts) {
            const std::uint32_t hash = hashIn(text);
            ASSERT_EQ(table.find(text, hash), nullptr);
            table.reserve(1);
            ASSERT_EQ(table.find("", 0), nullptr);  // the new room holds nothing
            table.add({text}, hash);
        }
        for (const std::string& text : texts) {
            const Entry* entry = table.find(text, hashIn(text));
            ASSERT_TRUE(entry != nullptr && entry->text.data() == text.data()) << text;
        }
    }
}

}  // namespace vorn_3_1::internal
