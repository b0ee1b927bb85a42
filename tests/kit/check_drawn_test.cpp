#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "drawing/drawn_score.h"
#include "support/kept_inputs.h"
#include "tests/kit/check_check.h"

// What is told of scores that nobody wrote: drawn from the grammar, and the fuzzers' kept ones.

namespace vorn::kit::test {

namespace {

using Reading = fuzz::DrawnScore (*)(const std::uint8_t* data, std::size_t size);

void check(Reading read, const std::string& bytes, const std::string& name) {
    const fuzz::DrawnScore score = read(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    EXPECT_EQ(check_problem(score.inputs), "") << name << "\n" << score.inputs.at("in.vorn");
}

void replay(Reading read, const std::string& fuzzer) {
    const std::vector<std::filesystem::path> inputs = vorn::test::kept_inputs("fuzz", fuzzer);
    for (const std::filesystem::path& input : inputs) {
        std::ifstream file(input, std::ios::binary);
        check(read, {std::istreambuf_iterator<char>(file), {}}, input.filename().string());
    }
    EXPECT_GT(inputs.size(), 50U);
}

}  // namespace

TEST(CheckOfKeptScores, HoldsItsPromises) { replay(fuzz::score_of_kind, "check"); }

TEST(CheckOfDrawnScores, HoldsItsPromises) {
    std::mt19937_64 random(3);
    for (int number = 0; number < 60; ++number) {
        std::string bytes(64 + random() % 1024, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() >> 56);
        check(fuzz::draw_score, bytes, "number " + std::to_string(number));
    }
}

// The checks themselves see what is wrong.
TEST(CheckOfChecks, SeesPlacesBeyondTheirLines) {
    const Told told = tell({{"in.vorn", "i1 = 4 0 4 {\np2 1\np3 1\np4 c4 }\n"}});
    const auto report = nlohmann::json::parse(json_of(told), nullptr, false);
    const nlohmann::json one = report["scores"][0]["diagnostics"][0];
    EXPECT_EQ(diagnostic_problem(one, told.run.map), "");
    for (const char* field : {"line", "column", "end_column", "offset", "end_offset"}) {
        nlohmann::json other = one;
        other["place"][field] = 99;
        EXPECT_NE(diagnostic_problem(other, told.run.map), "") << field;
    }
    nlohmann::json other = one;
    other["source"]["end_column"] = 99;
    EXPECT_NE(diagnostic_problem(other, told.run.map), "");
    other = one;
    other["code"] = "E9999";
    EXPECT_NE(diagnostic_problem(other, told.run.map), "");
}

}  // namespace vorn::kit::test
