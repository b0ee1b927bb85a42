#include <gtest/gtest.h>

#include <random>

#include "drawing/drawn_score.h"
#include "support/kept_inputs.h"
#include "tests/kit/events_check.h"

// Tables of scores that nobody wrote: drawn from the grammar, and the fuzzers' kept ones.

namespace vorn::kit::test {

namespace {

using Reading = fuzz::DrawnScore (*)(const std::uint8_t* data, std::size_t size);

void check(Reading read, const std::string& bytes) {
    const fuzz::DrawnScore score = read(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    EXPECT_EQ(events_problem(score.inputs), "") << score.inputs.at("in.vorn");
}

TEST(EventsOfDrawnScores, AreTheirScores) {
    std::mt19937_64 random(2);
    for (int number = 0; number < 100; ++number) {
        std::string bytes(64 + random() % 1024, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() >> 56);
        check(fuzz::draw_score, bytes);
    }
}

void replay(Reading read, const std::string& fuzzer) {
    const std::vector<std::filesystem::path> inputs = vorn::test::kept_inputs("fuzz", fuzzer);
    for (const std::filesystem::path& input : inputs) {
        std::ifstream file(input, std::ios::binary);
        check(read, {std::istreambuf_iterator<char>(file), {}});
    }
    EXPECT_GT(inputs.size(), 50U);
}

TEST(EventsOfKeptScores, AreTheirScores) { replay(fuzz::score_of_kind, "events"); }

TEST(EventsOfKeptBytes, AreTheirScores) { replay(fuzz::score_of_bytes, "score"); }

// The checks themselves see what is wrong.
TEST(EventsCheck, SeesALineThatTheScoreDoesNotHave) {
    const auto piece = nlohmann::json::parse(
        text_of(write_events_json, run_text("i1 = 4 0 1 { p2 1 p3 .5 p4(hz) no a4 }\n")), nullptr, false);
    EXPECT_EQ(score_problem("\n;I-block #1 (i1):\ni1    0.000  0.500   440.00000 \n\ne\n", piece), "");
    EXPECT_NE(score_problem("\n;I-block #1 (i1):\ni1    0.000  0.500   440.00001 \n\ne\n", piece), "");
    EXPECT_NE(csv_problem("a,b\n", piece), "");
    EXPECT_NE(csv_problem("a,b\n1\n", piece), "");
    EXPECT_EQ(csv_problem("a,b\n1,2\n", piece), "");
}

}  // namespace

}  // namespace vorn::kit::test
