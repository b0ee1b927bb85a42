// The setting commands NAME "(" value ")".

#include "blocks/settings.h"

#include <string>

#include "blocks_fixture.h"
#include "generators/random.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class Settings : public BlockTest {
protected:
    // Runs a setting command on what stands behind its name.
    int set(int (*command)(Reader&), const std::string& text) {
        feed(text);
        return command(reader);
    }
};

TEST_F(Settings, ParenthesisBehindTheName) {
    std::int32_t pos = 0;
    EXPECT_EQ(good_cmd_format("(1)", pos), 0);
    EXPECT_EQ(pos, 0);
    EXPECT_EQ(good_cmd_format(" \t(1)", pos), 0);
    EXPECT_EQ(pos, 2);
    pos = 0;
    EXPECT_EQ(good_cmd_format(" [1)", pos), 96);
    EXPECT_EQ(pos, 1);
    pos = 0;
    EXPECT_EQ(good_cmd_format("", pos), 96);
}

TEST_F(Settings, ParenthesisStaysOnTheLine) { EXPECT_EQ(set(set_samp_rate, "\n(48000)"), 96); }

TEST_F(Settings, SampleRate) {
    EXPECT_EQ(SRATE, 44100U);
    EXPECT_EQ(set(set_samp_rate, "(48000) rest"), 0);
    EXPECT_EQ(SRATE, 48000U);
    EXPECT_EQ(rest(), " rest");
    EXPECT_EQ(set(set_samp_rate, "( 96000 )"), 0);
    EXPECT_EQ(SRATE, 96000U);
    EXPECT_EQ(set(set_samp_rate, "(+5000000000)"), 0);
    EXPECT_EQ(SRATE, 5000000000U);
}

TEST_F(Settings, SampleRateRefused) {
    EXPECT_EQ(set(set_samp_rate, "(-1)"), 65);
    EXPECT_EQ(set(set_samp_rate, "(x)"), 65);
    EXPECT_EQ(set(set_samp_rate, "("), 65);  // the input ends
    EXPECT_EQ(SRATE, 44100U);
    EXPECT_EQ(set(set_samp_rate, "(48000"), 19);
    EXPECT_EQ(set(set_samp_rate, "(48000.5)"), 19);
    EXPECT_EQ(rest(), ".5)");
}

TEST_F(Settings, LineEndsOnlyBeforeTheValue) {
    EXPECT_EQ(set(set_samp_rate, "(\n\n  48000 ) rest"), 0);
    EXPECT_EQ(SRATE, 48000U);
    EXPECT_EQ(reader.line, 3U);
    EXPECT_EQ(set(set_samp_rate, "(48000\n)"), 19);
}

TEST_F(Settings, SeedRestartsTheSequence) {
    for (const std::uint32_t seed : {0U, 1U, 7U, 65535U}) {
        rand();
        EXPECT_EQ(set(set_rand_seed, "(" + std::to_string(seed) + ")"), 0);
        EXPECT_EQ(rand(), reference_sequence(seed, 1)[0]) << seed;
    }
}

TEST_F(Settings, SeedRefused) {
    EXPECT_EQ(set(set_rand_seed, "(65536)"), 29);
    EXPECT_EQ(rest(), "65536)");
    EXPECT_EQ(set(set_rand_seed, "(-1)"), 29);
    EXPECT_EQ(set(set_rand_seed, "()"), 29);
    EXPECT_EQ(set(set_rand_seed, "(3.5)"), 19);
    EXPECT_EQ(rand(), reference_sequence(1, 1)[0]);  // nothing was seeded
}

TEST_F(Settings, Deviations) {
    EXPECT_EQ(set(set_rand_dev, "(.5)"), 0);
    EXPECT_EQ(MAX_DEV, 0.5F);
    EXPECT_EQ(MAX_DEV2, 0.0F);
    EXPECT_EQ(set(set_rand_dev2, "( .25 )"), 0);
    EXPECT_EQ(MAX_DEV, 0.5F);
    EXPECT_EQ(MAX_DEV2, 0.25F);
    EXPECT_EQ(messages(), "");
}

TEST_F(Settings, DeviationAboveOneIsAskedBackAndKept) {
    EXPECT_EQ(set(set_rand_dev, "(1.5) x"), 0);
    EXPECT_EQ(MAX_DEV, 1.5F);
    EXPECT_EQ(messages(), "\n\nWARNING: Line 1:Yowza! Should RD be > 1 (100%)?\n(1.5) x\n     ^\n");
    EXPECT_EQ(set(set_rand_dev, "(1)"), 0);
    EXPECT_EQ(messages(), "");
}

TEST_F(Settings, DeviationOfOneHundredIsAllowed) {
    EXPECT_EQ(set(set_rand_dev2, "(100)"), 0);
    EXPECT_EQ(MAX_DEV2, 100.0F);
    EXPECT_EQ(messages(), "\n\nWARNING: Line 1:Yowza! Should RD be > 1 (100%)?\n(100)\n     ^\n");
}

TEST_F(Settings, DeviationIsStoredBeforeItsRangeIsChecked) {
    EXPECT_EQ(set(set_rand_dev, "(150)"), 28);
    EXPECT_EQ(MAX_DEV, 150.0F);
    EXPECT_EQ(rest(), "");  // the ")" comes first
    EXPECT_EQ(set(set_rand_dev2, "(-0.1)"), 28);
    EXPECT_EQ(MAX_DEV2, -0.1F);
    EXPECT_EQ(set(set_rand_dev, "(150"), 19);
    EXPECT_EQ(set(set_rand_dev, "(x)"), 28);
    EXPECT_EQ(messages(), "");
}

TEST_F(Settings, Factor) {
    for (const int number : {3, 4, 128}) {
        P_NO = number;
        EXPECT_EQ(set(set_pfactor, "(2)"), 0);
        EXPECT_EQ(PFACTOR, 2.0F);
    }
    EXPECT_EQ(set(set_pfactor, "(-.5)"), 0);
    EXPECT_EQ(PFACTOR, -0.5F);
    EXPECT_EQ(set(set_pfactor, "(x)"), 125);
    EXPECT_EQ(set(set_pfactor, "(2 3)"), 19);
}

TEST_F(Settings, FactorInP2IsRefusedBeforeAnythingIsRead) {
    P_NO = 2;
    EXPECT_EQ(set(set_pfactor, " nonsense"), 126);
    EXPECT_EQ(reader.pos, 0);
    EXPECT_EQ(PFACTOR, 1.0F);
}

}  // namespace
}  // namespace vorn::test
