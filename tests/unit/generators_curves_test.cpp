#include "generators/curves.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorn {
namespace {

constexpr float EXPONENT = 2.5f;

// Values a quarter, a half and three quarters of the way.
struct Quarters {
    std::uint32_t curve;
    float quarter, half, three_quarters;
};

// From 60 to 120: sqrt(0.5) = 0.70710678, 0.25^2.5 = 1/32, 0.5^2.5 = 0.17677670,
// 0.75^2.5 = 0.48713929, sin(pi/8) = 0.38268343, sin(3 pi/8) = 0.92387953.
const Quarters RISING[] = {
    {0, 75.0f, 90.0f, 105.0f},
    {1, 63.75f, 75.0f, 93.75f},
    {2, 90.0f, 102.426407f, 111.961525f},
    {3, 61.875f, 70.6066055f, 89.2283554f},
    {4, 82.9610062f, 102.426407f, 115.43277f},
    {5, 67.0389938f, 77.5735931f, 94.5672302f},
};

// From 10 to 0.
const Quarters FALLING[] = {
    {0, 7.5f, 5.0f, 2.5f},
    {1, 9.375f, 7.5f, 4.375f},
    {2, 5.0f, 2.92893219f, 1.3397460f},
    {3, 9.6875f, 8.23223305f, 5.12860727f},
    {4, 6.1731658f, 2.92893219f, 0.76120466f},
    {5, 8.82683468f, 7.07106781f, 4.23879528f},
};

TEST(PplotVal, ShapesOfTheSixCurves) {
    const auto value = [](std::uint64_t index, std::uint32_t curve, float start, float end) {
        return pplot_val(index, 5, curve, start, end, EXPONENT);
    };
    for (const Quarters& row : RISING) {
        EXPECT_FLOAT_EQ(value(1, row.curve, 60.0f, 120.0f), row.quarter) << row.curve;
        EXPECT_FLOAT_EQ(value(2, row.curve, 60.0f, 120.0f), row.half) << row.curve;
        EXPECT_FLOAT_EQ(value(3, row.curve, 60.0f, 120.0f), row.three_quarters) << row.curve;
    }
    for (const Quarters& row : FALLING) EXPECT_FLOAT_EQ(value(2, row.curve, 10.0f, 0.0f), row.half);
}

TEST(TplotVal, ShapesOfTheSixCurves) {
    const auto value = [](float t, std::uint32_t curve, float start, float end) {
        return tplot_val(curve, t, 8.0f, start, end, EXPONENT);
    };
    for (const Quarters& row : FALLING) {
        EXPECT_FLOAT_EQ(value(2.0f, row.curve, 10.0f, 0.0f), row.quarter) << row.curve;
        EXPECT_FLOAT_EQ(value(4.0f, row.curve, 10.0f, 0.0f), row.half) << row.curve;
        EXPECT_FLOAT_EQ(value(6.0f, row.curve, 10.0f, 0.0f), row.three_quarters) << row.curve;
    }
    for (const Quarters& row : RISING) EXPECT_FLOAT_EQ(value(4.0f, row.curve, 60.0f, 120.0f), row.half);
}

TEST(PplotVal, FirstEventGivesStartAndLastGivesEnd) {
    for (std::uint32_t curve = 0; curve <= 5; ++curve) {
        EXPECT_EQ(pplot_val(0, 7, curve, 0.1f, 0.7f, EXPONENT), 0.1f) << curve;
        EXPECT_EQ(pplot_val(6, 7, curve, 0.1f, 0.7f, EXPONENT), 0.7f) << curve;
    }
}

TEST(PplotVal, LastEventMeetsTheEndThatTheSumWouldMiss) {
    const float end = 1e-8f;  // 1e-8 - 1 is -1 in single precision
    EXPECT_EQ(pplot_val(2, 3, 0, 1.0f, end, 1.0f), end);
}

TEST(PplotVal, ACountOfOneGivesStart) {
    EXPECT_EQ(pplot_val(0, 1, 0, 3.0f, 9.0f, 1.0f), 3.0f);
    EXPECT_EQ(pplot_val(5, 1, 0, 3.0f, 9.0f, 1.0f), 3.0f);
}

TEST(PplotVal, BehindTheLastEventGivesEnd) {
    EXPECT_EQ(pplot_val(8, 7, 2, 3.0f, 9.0f, 1.0f), 9.0f);
    EXPECT_EQ(pplot_val(std::numeric_limits<std::uint64_t>::max(), 7, 2, 3.0f, 9.0f, 1.0f), 9.0f);
}

TEST(PplotVal, CurveAboveFiveGivesStart) {
    for (const std::uint32_t curve : {6u, 100u, 4000000000u}) {
        EXPECT_EQ(pplot_val(2, 5, curve, 3.0f, 9.0f, 1.0f), 3.0f);
        EXPECT_EQ(pplot_val(4, 5, curve, 3.0f, 9.0f, 1.0f), 3.0f);
        EXPECT_EQ(pplot_val(5, 5, curve, 3.0f, 9.0f, 1.0f), 9.0f);  // behind the last event
    }
}

TEST(TplotVal, CurveAboveFiveGivesEnd) {
    for (const std::uint32_t curve : {6u, 100u, 4000000000u}) {
        EXPECT_EQ(tplot_val(curve, 2.0f, 8.0f, 3.0f, 9.0f, 1.0f), 9.0f);
        EXPECT_EQ(tplot_val(curve, 0.0f, 8.0f, 3.0f, 9.0f, 1.0f), 3.0f);  // not yet begun
    }
}

TEST(TplotVal, OutsideTheSpanGivesItsEnds) {
    for (std::uint32_t curve = 0; curve <= 5; ++curve) {
        EXPECT_EQ(tplot_val(curve, -1.0f, 8.0f, 0.1f, 0.7f, EXPONENT), 0.1f);
        EXPECT_EQ(tplot_val(curve, 0.0f, 8.0f, 0.1f, 0.7f, EXPONENT), 0.1f);
        EXPECT_EQ(tplot_val(curve, 8.0f, 8.0f, 0.1f, 0.7f, EXPONENT), 0.7f);
        EXPECT_EQ(tplot_val(curve, 9.0f, 8.0f, 0.1f, 0.7f, EXPONENT), 0.7f);
    }
}

TEST(TplotVal, AnEmptySpanIsOverAtOnce) {
    EXPECT_EQ(tplot_val(1, 0.0f, 0.0f, 3.0f, 9.0f, 0.0f), 9.0f);
    EXPECT_EQ(tplot_val(1, -1.0f, 0.0f, 3.0f, 9.0f, 0.0f), 3.0f);
}

TEST(PplotVal, DifferenceIsTakenInSinglePrecision) {
    // 1e8 - 1 is 1e8 in single precision, so half of the way is 1 + 5e7.
    EXPECT_EQ(pplot_val(1, 3, 0, 1.0f, 1e8f, 1.0f), 50000000.0f);
}

TEST(PplotVal, ShareAndSumAreTakenInDoublePrecision) {
    // 0.1 + 0.6 * 22 / 23 is 0.67391301076; in single precision throughout it would be 0.67391306.
    EXPECT_EQ(pplot_val(22, 24, 0, 0.1f, 0.7f, 1.0f), 0.673913002f);
}

TEST(PplotVal, LargeCountsKeepTheirPlace) {
    const std::uint64_t count = (std::uint64_t{1} << 40) + 1;
    EXPECT_EQ(pplot_val(std::uint64_t{1} << 39, count, 0, 0.0f, 1.0f, 1.0f), 0.5f);
}

}  // namespace
}  // namespace vorn
