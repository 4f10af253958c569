// Word wrapping against its plain form.
#include <gtest/gtest.h>

#include "parser/basic_parser.h"
#include "support/plain_rules.h"

namespace vorn_3_1 {

using vorn_tests::outcomeOf;

TEST(ParagraphString, followsTheRuleForAllShortTexts) {
    for (const std::string& text : vorn_tests::allTexts("a \n", 7)) {
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
