#include "output/pitch_conversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using vorn::amp_to_db;
using vorn::cpc_to_bin;
using vorn::cpc_to_hz;
using vorn::cpc_to_oct;
using vorn::cpc_to_pch;
using vorn::db_to_amp;
using vorn::st_to_tr;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr std::int32_t HIGHEST = std::numeric_limits<std::int32_t>::max();

struct Pair {
    float from;
    float to;
};

}  // namespace

TEST(CpcToPch, MiddleCIsEight) {
    EXPECT_EQ(cpc_to_pch(48.0F), 8.0F);
    EXPECT_EQ(cpc_to_pch(0.0F), 4.0F);
}

TEST(CpcToPch, SemitonesAreHundredths) {
    for (const auto& [pitch, expected] :
         {Pair{49, 8.01F}, {59, 8.11F}, {60, 9.0F}, {47.5F, 7.115F}, {1205, 104.05F}}) {
        EXPECT_EQ(cpc_to_pch(pitch), expected) << pitch;
    }
}

TEST(CpcToPch, NegativePitchesCountDownFromTheirOctave) {
    for (const auto& [pitch, expected] : {Pair{-1, 3.99F}, {-11, 3.89F}, {-12, 3.0F}, {-13, 2.99F}}) {
        EXPECT_EQ(cpc_to_pch(pitch), expected) << pitch;
    }
}

TEST(CpcToPch, AcceptsAnyValue) {
    // Octave 2147483647 / 12 and 4 more; 3e9 is a multiple of 12.
    EXPECT_EQ(cpc_to_pch(3e9F), 178956974.0F);
    EXPECT_EQ(cpc_to_pch(-3e9F), -178956966.0F);
    EXPECT_TRUE(std::isnan(cpc_to_pch(NOT_A_NUMBER)));
    EXPECT_TRUE(std::isnan(cpc_to_pch(INFINITE)));
}

TEST(CpcToOct, SemitonesAreTwelfths) {
    for (const auto& [pitch, expected] : {Pair{48, 8.0F}, {51, 8.25F}, {54, 8.5F}, {60, 9.0F}, {0, 4.0F}}) {
        EXPECT_EQ(cpc_to_oct(pitch), expected) << pitch;
    }
}

TEST(CpcToOct, NegativePitchesCountDownFromTheirOctave) {
    for (const auto& [pitch, expected] : {Pair{-3, 3.75F}, {-6, 3.5F}, {-12, 3.0F}, {-18, 2.5F}}) {
        EXPECT_EQ(cpc_to_oct(pitch), expected) << pitch;
    }
}

TEST(CpcToHz, IsFormedInDoubleAndNarrowedOnce) {
    // 16 * 16.35159783 = 261.62556528; floats there are multiples of 1/32768,
    // and the nearest is 261 + 20499 / 32768 = 261.6255798...
    EXPECT_EQ(cpc_to_hz(48.0F), 261.0F + 20499.0F / 32768.0F);
    EXPECT_EQ(cpc_to_hz(57.0F), 440.0F);
}

TEST(CpcToHz, OctavesDouble) {
    EXPECT_EQ(cpc_to_hz(0.0F), static_cast<float>(16.35159783));
    EXPECT_EQ(cpc_to_hz(12.0F), static_cast<float>(32.70319566));
    EXPECT_EQ(cpc_to_hz(-12.0F), static_cast<float>(8.175798915));
}

TEST(CpcToHz, NegativePitchesGoOnDownwards) {
    // 16.35159783 * 2^(-1/12) = 16.35159783 * 0.94387431
    EXPECT_FLOAT_EQ(cpc_to_hz(-1.0F), 15.433853F);
    EXPECT_TRUE(std::isnan(cpc_to_hz(INFINITE)));
}

TEST(CpcToBin, DividesTheFrequencyByTheWidthOfABin) {
    // 440 hertz at 44100: bins of 172.27, 10.77 and 2.69 hertz.
    EXPECT_EQ(cpc_to_bin(0, 57.0F, 44100), 3);
    EXPECT_EQ(cpc_to_bin(4, 57.0F, 44100), 41);
    EXPECT_EQ(cpc_to_bin(6, 57.0F, 44100), 163);
}

TEST(CpcToBin, SizesDoubleFromIndexToIndex) {
    // 256 hertz between bins of the rate 65536 at index 0; 440 / 256 = 1.72 and so on.
    const std::int32_t expected[] = {2, 3, 7, 14, 28, 55, 110, 220};
    for (std::int32_t index = 0; index < 8; ++index) {
        EXPECT_EQ(cpc_to_bin(index, 57.0F, 65536), expected[index]) << index;
    }
}

TEST(CpcToBin, IndexSevenHas32768Points) { EXPECT_EQ(cpc_to_bin(7, 57.0F, 44100), 327); }

TEST(CpcToBin, DividesTheRateAsARealNumber) {
    // 100 / 4096 hertz: 440 * 40.96 = 18022.4
    EXPECT_EQ(cpc_to_bin(4, 57.0F, 100), 18022);
}

TEST(CpcToBin, AcceptsASampleRateOfZero) {
    EXPECT_EQ(cpc_to_bin(4, 57.0F, 0), HIGHEST);
    EXPECT_EQ(cpc_to_bin(4, NOT_A_NUMBER, 44100), 0);
}

TEST(AmpToDb, IsTwentyTimesTheLogarithm) {
    EXPECT_EQ(amp_to_db(1), 0.0F);
    EXPECT_EQ(amp_to_db(10), 20.0F);
    EXPECT_NEAR(amp_to_db(1000), 60.0F, 1e-5);
    EXPECT_NEAR(amp_to_db(32767), 90.3087, 1e-4);
}

TEST(AmpToDb, OfZeroIsMinusInfinity) { EXPECT_EQ(amp_to_db(0), -INFINITE); }

TEST(AmpToDb, OfANegativeAmplitudeIsNoNumber) { EXPECT_TRUE(std::isnan(amp_to_db(-1))); }

TEST(DbToAmp, IsCutToAWholeAmplitude) {
    // The factor 0.11512925 is a little below ln(10) / 20.
    EXPECT_EQ(db_to_amp(60), 999);
    EXPECT_EQ(db_to_amp(40), 99);
    EXPECT_EQ(db_to_amp(20), 9);
    EXPECT_EQ(db_to_amp(0), 1);
    EXPECT_EQ(db_to_amp(-10), 0);
    EXPECT_EQ(db_to_amp(96), 63095);
}

TEST(DbToAmp, Saturates) { EXPECT_EQ(db_to_amp(2000), HIGHEST); }

TEST(StToTr, TwelveSemitonesDouble) {
    EXPECT_EQ(st_to_tr(0.0F), 1.0F);
    EXPECT_EQ(st_to_tr(12.0F), 2.0F);
    EXPECT_EQ(st_to_tr(-12.0F), 0.5F);
    EXPECT_EQ(st_to_tr(1.0F), static_cast<float>(1.059463094359));
    EXPECT_FLOAT_EQ(st_to_tr(7.0F), 1.4983071F);
}
