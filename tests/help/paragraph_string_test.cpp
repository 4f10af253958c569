// Word wrapping, by examples and against its plain form.
#include <gtest/gtest.h>

#include <stdexcept>

#include "core/all_texts.h"
#include "core/basic_parser.h"
#include "fuzz/plain_rules.h"

namespace vorn_3_1 {

namespace {

constexpr const char* noRoom = "(no room)";

template <class Wrap>
std::string outcomeOf(Wrap wrap, const std::string& text, const char* prefix, unsigned indent,
                      unsigned width) {
    try {
        return wrap(text, prefix, indent, width);
    } catch (const std::out_of_range&) {
        return noRoom;
    }
}

}  // namespace

TEST(ParagraphString, examples) {
    const struct {
        const char *text, *prefix;
        unsigned indent, width;
        const char* lines;
    } cases[] = {
        {"", "-x", 4, 10, ""},  // drops the prefix
        {"   ", "-x", 4, 10, "-x  \n"},
        {"  one two three", "-x", 4, 8, "-x  one two\n    three\n"},
        {"one \n\n two", "-x", 4, 10, "-x  one \n    two\n"},
        {"one two", "-xyz", 4, 9, "-xyz one two\n"},         // as long as the indent: one column less
        {"one two", "-xyzw", 4, 9, "-xyzw one\n    two\n"},  // and less by the overhang
        {"ab cdefgh", "", 1, 4, " ab \n cde\n fgh\n"},       // a word that is too long is cut
        {"a b", "-xyzw", 1, 4, "-xyzw a b\n"},               // less than no room is no limit
        {"ab", "-xyz", 1, 5, noRoom},
        {"ab", "", 1, 1, noRoom},
    };
    for (const auto& [text, prefix, indent, width, lines] : cases)
        EXPECT_EQ(outcomeOf(BasicParser::paragraphString, text, prefix, indent, width), lines);
}

TEST(ParagraphString, followsTheRuleForAllShortTexts) {
    for (const std::string& text : allTexts("a \n", 7)) {
        for (const char* prefix : {"", "-", "--", "---", "------"}) {
            for (unsigned indent = 0; indent < 4; ++indent) {
                for (unsigned width = 0; width < 7; ++width) {
                    ASSERT_EQ(outcomeOf(BasicParser::paragraphString, text, prefix, indent, width),
                              outcomeOf(vorn_tests::paragraph, text, prefix, indent, width))
                        << "'" << text << "' behind '" << prefix << "', " << indent << ", " << width;
                }
            }
        }
    }
}

}  // namespace vorn_3_1
