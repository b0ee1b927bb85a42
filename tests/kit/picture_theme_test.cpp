#include "kit/picture/theme.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

// Colours stand out from the paper, and from each other also for those who see two
// of the three primaries only. Colour vision by Machado, Oliveira and Fernandes (2009),
// severity 1; differences in CIELAB (1976).

namespace vorn::kit {
namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

constexpr Matrix NORMAL = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
constexpr Matrix PROTANOPIA = {
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix DEUTERANOPIA = {
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix TRITANOPIA = {
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};
constexpr Matrix TO_XYZ = {{{0.4124564, 0.3575761, 0.1804375},
                            {0.2126729, 0.7151522, 0.0721750},
                            {0.0193339, 0.1191920, 0.9503041}}};
constexpr Vector WHITE = {0.95047, 1, 1.08883};

Vector operator*(const Matrix& matrix, const Vector& vector) {
    Vector result = {};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t at = 0; at < 3; ++at) result[row] += matrix[row][at] * vector[at];
    }
    return result;
}

Vector linear(std::uint32_t color) {
    Vector result = {};
    for (std::size_t part = 0; part < 3; ++part) {
        const double value = (color >> (16 - 8 * part) & 0xFFU) / 255.0;
        result[part] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return result;
}

Vector lab(const Vector& light) {
    const Vector xyz = TO_XYZ * light;
    Vector root = {};
    for (std::size_t at = 0; at < 3; ++at) {
        const double share = std::max(0.0, xyz[at] / WHITE[at]);
        root[at] = share > 0.008856 ? std::cbrt(share) : 7.787 * share + 16.0 / 116;
    }
    return {116 * root[1] - 16, 500 * (root[0] - root[1]), 200 * (root[1] - root[2])};
}

double difference(std::uint32_t one, std::uint32_t other, const Matrix& vision) {
    const Vector a = lab(vision * linear(one));
    const Vector b = lab(vision * linear(other));
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

double contrast(std::uint32_t one, std::uint32_t other) {
    const double a = (TO_XYZ * linear(one))[1] + 0.05;
    const double b = (TO_XYZ * linear(other))[1] + 0.05;
    return std::max(a, b) / std::min(a, b);
}

class Tones : public testing::TestWithParam<const kit::Tones*> {};

TEST_P(Tones, StandOutFromThePaper) {
    const kit::Tones& tones = *GetParam();
    EXPECT_GE(contrast(tones.ink, tones.paper), 7);
    EXPECT_GE(contrast(tones.muted, tones.paper), 4.5);
    for (const std::uint32_t color : tones.instruments) EXPECT_GE(contrast(color, tones.paper), 3) << color;
}

// Even a quiet note must be seen.
TEST_P(Tones, FaintShadesStandOutToo) {
    const kit::Tones& tones = *GetParam();
    for (int color = 0; color < COLOR_COUNT; ++color) {
        EXPECT_GE(contrast(shade_color(tones, color, 0), tones.paper), 3) << color;
    }
}

// Behind the events lie the rows of a keyboard.
TEST_P(Tones, ABandIsSeenAndHidesNothing) {
    const kit::Tones& tones = *GetParam();
    EXPECT_GE(contrast(tones.band, tones.paper), 1.08);
    EXPECT_LT(contrast(tones.band, tones.paper), contrast(tones.grid, tones.paper));
    for (int color = 0; color < COLOR_COUNT; ++color) {
        EXPECT_GE(contrast(shade_color(tones, color, 0), tones.band), 2.7) << color;
    }
}

TEST_P(Tones, AreDistinctForEveryVision) {
    const kit::Tones& tones = *GetParam();
    for (const Matrix& vision : {NORMAL, PROTANOPIA, DEUTERANOPIA, TRITANOPIA}) {
        for (int one = 0; one < COLOR_COUNT; ++one) {
            for (int other = one + 1; other < COLOR_COUNT; ++other) {
                EXPECT_GE(difference(tones.instruments[one], tones.instruments[other], vision), 15)
                    << one << " and " << other;
                EXPECT_GE(difference(tones.faint[one], tones.faint[other], vision), 12)
                    << one << " and " << other << ", faint";
            }
        }
    }
}

TEST_P(Tones, FadeTowardsThePaper) {
    const kit::Tones& tones = *GetParam();
    for (int color = 0; color < COLOR_COUNT; ++color) {
        EXPECT_EQ(shade_color(tones, color, SHADE_COUNT - 1), tones.instruments[color]);
        EXPECT_EQ(shade_color(tones, color, 0), tones.faint[color]);
        for (int shade = 1; shade < SHADE_COUNT; ++shade) {
            const std::uint32_t fuller = shade_color(tones, color, shade);
            const std::uint32_t fainter = shade_color(tones, color, shade - 1);
            EXPECT_GT(contrast(fuller, tones.paper), 1.08 * contrast(fainter, tones.paper)) << color << shade;
            EXPECT_GT(difference(fuller, fainter, NORMAL), 4.5) << color << " " << shade;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Tones, testing::Values(&LIGHT_TONES, &DARK_TONES));

TEST(Theme, FollowsTheReaderUnlessItIsFixed) {
    const std::string query = "prefers-color-scheme:dark";
    EXPECT_NE(picture_rules(Theme::AUTOMATIC).find(query), std::string::npos);
    EXPECT_NE(picture_rules(Theme::AUTOMATIC).find("#14161a"), std::string::npos);
    EXPECT_EQ(picture_rules(Theme::LIGHT).find(query), std::string::npos);
    EXPECT_EQ(picture_rules(Theme::LIGHT).find("#14161a"), std::string::npos);
    EXPECT_EQ(picture_rules(Theme::DARK).find("#ffffff"), std::string::npos);
}

TEST(Theme, CutsWhatIsTooWideBetweenCharacters) {
    EXPECT_EQ(cut_to_width("short", 10, 100), "short");
    const std::string cut = cut_to_width(std::string(50, 'n') + "\xC3\xA4\xC3\xA4", 10, 100);
    EXPECT_LE(text_width(cut, 10), 100);
    EXPECT_EQ(cut.substr(cut.size() - 3), "\xE2\x80\xA6");
    const std::string umlauts = cut_to_width("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 10, 30);
    EXPECT_EQ(umlauts, "\xC3\xA4\xC3\xA4\xC3\xA4\xE2\x80\xA6");
}

}  // namespace
}  // namespace vorn::kit
