#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <random>
#include <regex>
#include <string>
#include <vector>

#include "blocks/commands.h"
#include "drawing/dice.h"
#include "drawing/grammar.h"
#include "drawing/mistakes.h"
#include "drawing/score_checks.h"
#include "support/kept_inputs.h"
#include "support/run_case.h"

// What the fuzzers check, on their kept inputs and on a fixed sample of drawn
// scores, with every compiler and every limit.

namespace vorn::test {
namespace {

namespace fs = std::filesystem;

const fs::path FUZZ = fs::path(VORN_CASES) / "../../fuzz";

using Reading = fuzz::DrawnScore (*)(const std::uint8_t* data, std::size_t size);

void check_bytes(Reading read, const std::string& bytes, const std::string& name) {
    const fuzz::DrawnScore score = read(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    const std::string problem = fuzz::check_score(score).problem;
    EXPECT_EQ(problem, "") << name << "\n" << score.inputs.at("in.vorn");
}

void replay(Reading read, const std::string& fuzzer) {
    const std::vector<fs::path> inputs = kept_inputs(FUZZ, fuzzer);
    for (const fs::path& input : inputs) check_bytes(read, read_file(input), input.filename().string());
    EXPECT_GT(inputs.size(), 100U);
}

TEST(FuzzReplay, KeptBytes) { replay(fuzz::score_of_bytes, "score"); }

TEST(FuzzReplay, KeptDrawnScores) { replay(fuzz::draw_score, "drawn_score"); }

TEST(FuzzReplay, WhatWasFoundIsAmongThem) {
    for (const char* found :
         {"drawn_score/8b9fe9813195e5fcfaafdb60b15fa0dc7f3455d8", "events/block_without_events"}) {
        const std::vector<fs::path> inputs = kept_inputs(FUZZ, fs::path(found).parent_path().string());
        EXPECT_EQ(std::count(inputs.begin(), inputs.end(), FUZZ / "found" / found), 1) << found;
    }
}

TEST(FuzzReplay, FreshDrawnScores) {
    std::mt19937_64 random(1);
    for (int number = 0; number < 300; ++number) {
        std::string bytes(64 + random() % 1024, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() >> 56);
        check_bytes(fuzz::draw_score, bytes, "number " + std::to_string(number));
    }
}

// A word of the language that the grammar never writes would never be tried.
TEST(FuzzGrammar, HasEveryCommandThatTheEngineKnows) {
    std::string text = fuzz::grammar_text();
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const std::string letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    int commands = 0;
    for (const char first : letters) {
        for (const char second : letters) {
            const std::string name = {first, second, '('};
            if (!is_command(name.c_str(), 0) && !is_gcommand(name.c_str(), 0) &&
                !is_output_specifier(name.c_str(), 0)) {
                continue;
            }
            ++commands;
            EXPECT_NE(text.find(name.substr(0, 2)), std::string::npos) << name;
        }
    }
    EXPECT_GT(commands, 20);
}

bool some_drawn_score_has(const std::string& pattern) {
    const std::regex wanted(pattern);
    std::mt19937_64 random(1);
    for (int number = 0; number < 2000; ++number) {
        std::string bytes(64 + random() % 1024, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() >> 56);
        const fuzz::DrawnScore score =
            fuzz::draw_score(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        if (score.valid && std::regex_search(score.inputs.at("in.vorn"), wanted)) return true;
    }
    return false;
}

TEST(FuzzGrammar, DrawsWhatHasNoLettersOfItsOwn) {
    for (const char* pattern :
         {"~\\[[^\\]\n]*\\?", "~\\[[^\\]\n]*@1", "rh[^\n]* (4|8|16)\\.*,8 ", " [a-g]s[0-9 ]", " [a-g]f[0-9 ]",
          " [a-g]n[0-9 ]", "nox[^\n]* [a-g][sfn]*\\+", "nox[^\n]* [a-g][sfn]*-"}) {
        EXPECT_TRUE(some_drawn_score_has(pattern)) << pattern;
    }
}

// The longest run of digits that one mistake leaves behind these characters of the text.
std::size_t most_digits(const std::string& text, const std::string& before) {
    std::size_t most = 0;
    for (unsigned choice = 0; choice < 256 * text.size(); ++choice) {
        for (std::uint8_t kind = 0; kind < 9; ++kind) {
            const std::uint8_t bytes[] = {kind, 0, static_cast<std::uint8_t>(choice % text.size()),
                                          static_cast<std::uint8_t>(choice / text.size())};
            fuzz::Dice dice(bytes, sizeof bytes);
            std::string changed = text;
            fuzz::make_mistake(changed, dice);
            const std::size_t begin = changed.find(before);
            if (begin == changed.npos) continue;
            const std::size_t digits = begin + before.size();
            const std::size_t end = changed.find_first_not_of("0123456789", digits);
            most = std::max(most, std::min(end, changed.size()) - digits);
        }
    }
    return most;
}

// The warnings for the events beyond the block would fill the memory of the fuzzer.
TEST(FuzzMistakes, LeaveTimesShort) {
    EXPECT_EQ(most_digits("p2 ho(T*1 1)\n", "T*"), 4U);
    EXPECT_EQ(most_digits("p2 ho(-8 1)\n", "(-"), 4U);
}

}  // namespace
}  // namespace vorn::test
