#include "kit/picture/scale.h"

#include <gtest/gtest.h>

#include <cmath>

// Round numbers and names beside the axes.

namespace vorn::kit {
namespace {

std::vector<std::string> labels(const std::vector<Tick>& ticks) {
    std::vector<std::string> texts;
    for (const Tick& tick : ticks) texts.push_back(tick.label);
    return texts;
}

using Texts = std::vector<std::string>;

TEST(Scale, GoesFromOneRangeToAnother) {
    const Scale scale = {10, 20, 300, 100};
    EXPECT_DOUBLE_EQ(scale(10), 300);
    EXPECT_DOUBLE_EQ(scale(15), 200);
    EXPECT_DOUBLE_EQ(scale(20), 100);
}

TEST(RoundStep, IsOneTwoOrFiveOfAPowerOfTen) {
    EXPECT_DOUBLE_EQ(round_step(1), 1);
    EXPECT_DOUBLE_EQ(round_step(1.01), 2);
    EXPECT_DOUBLE_EQ(round_step(2.5), 5);
    EXPECT_DOUBLE_EQ(round_step(6), 10);
    EXPECT_DOUBLE_EQ(round_step(0.03), 0.05);
    EXPECT_DOUBLE_EQ(round_step(700), 1000);
    EXPECT_DOUBLE_EQ(round_step(NAN), 1);
    EXPECT_DOUBLE_EQ(round_step(0), 1);
}

TEST(RoundSeconds, AreMinutesWhereTheyAreLong) {
    EXPECT_DOUBLE_EQ(round_seconds(8), 10);
    EXPECT_DOUBLE_EQ(round_seconds(12), 15);
    EXPECT_DOUBLE_EQ(round_seconds(40), 60);
    EXPECT_DOUBLE_EQ(round_seconds(4000), 7200);
}

TEST(Labels, HaveTheDigitsTheyNeed) {
    EXPECT_EQ(step_label(0.5, 0.25), "0.5");
    EXPECT_EQ(step_label(1.5, 0.5), "1.5");
    EXPECT_EQ(step_label(-20, 10), "-20");
    EXPECT_EQ(short_number(0.00012766), "0.0001277");
    EXPECT_EQ(short_number(3981.07), "3981");
    EXPECT_EQ(short_number(-0.5), "-0.5");
    EXPECT_EQ(short_number(1e12), "1e+12");
    EXPECT_EQ(counted(1, "event"), "1 event");
    EXPECT_EQ(counted(1234567, "event"), "1,234,567 events");
}

TEST(Labels, TellLongTimesInMinutes) {
    EXPECT_EQ(time_label(125, 5, true), "2:05");
    EXPECT_EQ(time_label(3600, 60, true), "60:00");
    EXPECT_EQ(time_label(125, 5, false), "125");
    EXPECT_EQ(labels(second_ticks({0, 10, 0, 500}, 64)), (Texts{"0", "2", "4", "6", "8", "10"}));
    EXPECT_EQ(labels(second_ticks({0, 240, 0, 500}, 100)), (Texts{"0:00", "1:00", "2:00", "3:00", "4:00"}));
}

TEST(Keys, AreNamedAsScoresNameThem) {
    EXPECT_EQ(key_name(60), "c4");  // middle c
    EXPECT_EQ(key_name(69), "a4");  // 440 hertz
    EXPECT_EQ(key_name(54), "fs3");
    EXPECT_EQ(key_name(70.4), "bf4");
    EXPECT_EQ(key_name(0), "c-1");
    EXPECT_EQ(key_name(-1), "b-2");
}

TEST(Keys, HaveTheOctaveWhereItBegins) {
    EXPECT_EQ(labels(key_ticks({55, 62, 80, 0}, 16)), (Texts{"g3", "a", "c4", "d"}));
    EXPECT_EQ(labels(key_ticks({-5, 2, 80, 0}, 16)), (Texts{"g-2", "a", "c-1", "d"}));
    const std::vector<Tick> ticks = key_ticks({55, 62, 80, 0}, 16);
    EXPECT_FALSE(ticks[0].is_strong);
    EXPECT_TRUE(ticks[2].is_strong);
}

TEST(Keys, AreNaturalOrNot) {
    std::string octave;
    for (std::int64_t key = -12; key < 0; ++key) octave += is_natural(key) ? "w" : "b";
    EXPECT_EQ(octave, "wbwbwwbwbwbw");  // as on a keyboard from c on
}

TEST(Keys, LeaveRoomBetweenTheirNames) {
    EXPECT_EQ(labels(key_ticks({60, 64, 80, 0}, 16)), (Texts{"c4", "cs", "d", "ef", "e"}));
    EXPECT_EQ(labels(key_ticks({60, 72, 96, 0}, 16)), (Texts{"c4", "d", "e", "g", "a", "c5"}));
    EXPECT_EQ(labels(key_ticks({60, 72, 72, 0}, 16)), (Texts{"c4", "e", "g", "c5"}));
    EXPECT_EQ(labels(key_ticks({48, 72, 96, 0}, 16)), (Texts{"c3", "g", "c4", "g", "c5"}));
    EXPECT_EQ(labels(key_ticks({48, 84, 108, 0}, 16)), (Texts{"c3", "c4", "c5", "c6"}));
    EXPECT_EQ(labels(key_ticks({48, 84, 36, 0}, 16)), (Texts{"c3", "c5"}));
    const std::vector<Tick> wide = key_ticks({-1000, 100000, 240, 0}, 16);
    EXPECT_GE(wide.size(), 2U);
    EXPECT_LE(wide.size(), 16U);
}

}  // namespace
}  // namespace vorn::kit
