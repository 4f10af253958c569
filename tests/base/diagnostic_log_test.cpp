#include "base/diagnostic_log.h"

#include <gtest/gtest.h>

#include <iostream>

namespace vorn_3_1::internal {

TEST(DiagnosticLog, discardsIntoOneStreamUnlessItIsOn) {
    std::ostream& null = vornLog();
    null << "goes nowhere" << std::endl;
    EXPECT_TRUE(null.fail());
    vornLogEnabled = true;
    EXPECT_EQ(&vornLog(), &std::cout);
    vornLogEnabled = false;
    EXPECT_EQ(&vornLog(), &null);
}

}  // namespace vorn_3_1::internal
