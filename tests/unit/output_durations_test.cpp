#include "output/durations.h"

#include <gtest/gtest.h>

namespace vorn {
namespace {

TEST(Durations, StartAtZeroAndGoBackThere) {
    EXPECT_EQ(CUM_TIME, 0.0);
    EXPECT_EQ(LAST_IB_DUR, 0.0);
    CUM_TIME = 12.5;
    LAST_IB_DUR = 4.25;
    reset_durations();
    EXPECT_EQ(CUM_TIME, 0.0);
    EXPECT_EQ(LAST_IB_DUR, 0.0);
}

}  // namespace
}  // namespace vorn
