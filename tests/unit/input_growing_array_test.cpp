#include "input/growing_array.h"

#include <gtest/gtest.h>

#include "support/failing_allocations.h"

namespace vorn {
namespace {

TEST(GrowingArray, KeepsWhatIsAppendedInOrder) {
    GrowingArray<int> array;
    EXPECT_EQ(array.size(), 0U);
    for (int i = 0; i < 100000; ++i) ASSERT_TRUE(array.append(3 * i));
    ASSERT_EQ(array.size(), 100000U);
    for (std::size_t i = 0; i < 100000; ++i) ASSERT_EQ(array[i], static_cast<int>(3 * i));
}

TEST(GrowingArray, MayAppendItsOwnElements) {
    GrowingArray<int> array;
    ASSERT_TRUE(array.append(7));
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(array.append(array[0]));
    EXPECT_EQ(array[100], 7);
}

TEST(GrowingArray, ReleasesEverything) {
    const int open = test::allocations_open;
    {
        GrowingArray<double> array;
        for (int i = 0; i < 1000; ++i) ASSERT_TRUE(array.append(i));
        EXPECT_GT(test::allocations_open, open);
    }
    EXPECT_EQ(test::allocations_open, open);
}

TEST(GrowingArray, OutOfMemoryLeavesItAsItWas) {
    GrowingArray<int> array;
    test::allocations_left = 2;
    int appended = 0;
    while (array.append(appended)) ++appended;
    test::allocations_left = test::ANY_NUMBER;
    EXPECT_EQ(appended, 16);  // eight, then twice as many
    ASSERT_EQ(array.size(), 16U);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(array[static_cast<std::size_t>(i)], i);
    ASSERT_TRUE(array.append(16));
    EXPECT_EQ(array[16], 16);
}

}  // namespace
}  // namespace vorn
