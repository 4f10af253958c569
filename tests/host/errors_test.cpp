// What the companion says of each mistake.
#include <gtest/gtest.h>

#include "vorn/host.h"

namespace host = vorn::host;

TEST(Errors, anUnknownNameIsSaidWithTheNearest) {
    host::Parser parser("tool");
    parser.add<int>("output-dir", "Where.");
    EXPECT_EQ(parser.parse({"--outptu=x"}).error().text(), "unknown option '--outptu'; did you mean '--output-dir'?");
}
