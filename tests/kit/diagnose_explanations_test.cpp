#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "blocks/iblock_header.h"
#include "generators/s2.h"
#include "input/message_table.h"
#include "input/reader.h"
#include "kit/diagnose/explanation.h"
#include "kit/diagnose/from_messages.h"
#include "kit/lint/lint.h"
#include "output/event_list.h"
#include "output/tempo_map.h"
#include "output/value_queue.h"
#include "preproc/includes.h"
#include "tests/kit/table_sources.h"

// Every message that can occur is explained, and the score of each explanation
// does provoke it.

namespace vorn::kit {
namespace {

constexpr int HIGHEST_NUMBER = 1000;
const std::set<int> RESERVED_ERRORS = {4, 10, 31, 56, 83, 90, 92, 93, 94, 95, 101, 154, 200};
const std::set<int> RESERVED_WARNINGS = {23, 25};

// One that no short score provokes, which its explanation says.
const std::set<std::string_view> UNPROVOKED = {"E9",     "E33",   "E102",   "E113",       "Eendless",
                                               "Elong",  "Eopen", "Eother", "Etemporary", "Eusage",
                                               "Ewrite", "Wmore", "Wother"};

// Beside the file that some of them include.
ScoreRun run_score_text(std::string_view text) {
    test::TableSources sources{{"score.vorn", std::string(text)},
                               {"drums.vorn", "i9 = 3, 0, 16 {\np2 1  p3 1 }\n"}};
    return run_score("score.vorn", {}, sources);
}

std::vector<std::string> codes_of(const ScoreRun& run, bool midi = true) {
    std::vector<std::string> codes;
    std::vector<Diagnostic> diagnostics = from_messages(run);
    add_lint(diagnostics, run, {.midi = midi, .ignored = {}});
    for (const Diagnostic& diagnostic : diagnostics) codes.push_back(diagnostic.code);
    return codes;
}

bool has(const std::vector<std::string>& codes, std::string_view code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

std::string first_error(const std::vector<std::string>& codes) {
    for (const std::string& code : codes) {
        if (code[0] == 'E') return code;
    }
    return {};
}

void expect_explained(const char* kind, const char* (*text_of)(int), const std::set<int>& reserved) {
    int explained = 0;
    for (int number = 1; number <= HIGHEST_NUMBER; ++number) {
        if (std::string_view(text_of(number)) == text_of(0)) continue;
        const std::string code = kind + std::to_string(number);
        const std::optional<Explanation> explanation = find_explanation(code);
        ASSERT_TRUE(explanation) << code;
        EXPECT_EQ(explanation->cure.empty(), reserved.contains(number)) << code;
        EXPECT_EQ(explanation->title, "") << code;
        ++explained;
    }
    EXPECT_GT(explained, 15);
}

TEST(Explanations, CoverEveryNumberThatIsNotReserved) {
    expect_explained("E", error_text, RESERVED_ERRORS);
    expect_explained("W", warning_text, RESERVED_WARNINGS);
}

TEST(Explanations, CoverEveryRuleOfLint) {
    for (const std::string& code : lint_codes()) {
        const std::optional<Explanation> explanation = find_explanation(code);
        ASSERT_TRUE(explanation) << code;
        EXPECT_FALSE(explanation->score.empty()) << code;
    }
}

TEST(Explanations, ReservedNumbersSayThatNothingRaisesThem) {
    for (const char* const code : {"E4", "E83", "E200", "W23"}) {
        EXPECT_NE(find_explanation(code)->cause.find("nothing raises it"), std::string_view::npos) << code;
    }
    EXPECT_FALSE(find_explanation("E1"));
    EXPECT_FALSE(find_explanation("E1000"));
    EXPECT_FALSE(find_explanation("L99"));
    EXPECT_FALSE(find_explanation("E"));
    EXPECT_FALSE(find_explanation(""));
}

TEST(Explanations, ScoresProvokeTheirCode) {
    for (const Explanation& explanation : all_explanations()) {
        if (explanation.score.empty()) continue;
        const ScoreRun run = run_score_text(explanation.score);
        const std::vector<std::string> codes = codes_of(run);
        if (explanation.code[0] == 'E') {
            EXPECT_EQ(first_error(codes), explanation.code) << explanation.score;
            EXPECT_EQ(run.status, 1) << explanation.code;
        } else {
            EXPECT_TRUE(has(codes, explanation.code)) << explanation.code << "\n" << explanation.score;
        }
    }
}

// A mistake is seen at once in a short score. A name of more than 255 characters takes more.
TEST(Explanations, ScoresHaveThreeLinesAtMost) {
    for (const Explanation& explanation : all_explanations()) {
        if (explanation.code == "Epath") continue;
        EXPECT_LE(std::count(explanation.score.begin(), explanation.score.end(), '\n'), 3)
            << explanation.code;
    }
}

TEST(Explanations, MendedScoresAreWell) {
    int mended = 0;
    for (const Explanation& explanation : all_explanations()) {
        EXPECT_EQ(explanation.cured.empty(), explanation.score.empty()) << explanation.code;
        if (explanation.cured.empty()) continue;
        const ScoreRun run = run_score_text(explanation.cured);
        const std::vector<std::string> codes = codes_of(run);
        EXPECT_EQ(run.status, 0) << explanation.code << "\n" << explanation.cured;
        EXPECT_FALSE(has(codes, explanation.code)) << explanation.code << "\n" << explanation.cured;
        EXPECT_EQ(codes_of(run, false), std::vector<std::string>()) << explanation.code << "\n"
                                                                    << explanation.cured;
        EXPECT_NE(explanation.cured, explanation.score) << explanation.code;
        ++mended;
    }
    EXPECT_GT(mended, 100);
}

TEST(Explanations, SayWhyNoScoreIsShown) {
    std::set<std::string_view> unprovoked;
    for (const Explanation& explanation : all_explanations()) {
        EXPECT_NE(explanation.score.empty(), explanation.unprovoked.empty()) << explanation.code;
        if (explanation.score.empty()) unprovoked.insert(explanation.code);
    }
    EXPECT_EQ(unprovoked, UNPROVOKED);
}

TEST(Explanations, AreWholeSentences) {
    for (const Explanation& explanation : all_explanations()) {
        EXPECT_TRUE(explanation.cause.ends_with('.')) << explanation.code;
        EXPECT_TRUE(explanation.cure.ends_with('.')) << explanation.code;
        EXPECT_EQ(explanation.cause.find("  "), std::string_view::npos) << explanation.code;
        EXPECT_FALSE(title_of(explanation).empty()) << explanation.code;
        EXPECT_EQ(title_of(explanation).find('\n'), std::string::npos) << explanation.code;
    }
}

TEST(Explanations, AreListedByKindThenNumberThenName) {
    const std::vector<Explanation> all = all_explanations();
    std::vector<std::string_view> codes;
    for (const Explanation& explanation : all) codes.push_back(explanation.code);
    EXPECT_EQ((std::set<std::string_view>(codes.begin(), codes.end()).size()), codes.size());
    const auto place = [&](std::string_view code) { return std::find(codes.begin(), codes.end(), code); };
    EXPECT_EQ(codes.front(), "E3");
    EXPECT_LT(place("E9"), place("E11"));
    EXPECT_LT(place("E500"), place("Ebar"));
    EXPECT_LT(place("Ewrite"), place("W1"));
    EXPECT_LT(place("Wtempo"), place("L1"));
    EXPECT_EQ(codes.back(), "L19");
}

TEST(Explanations, TitlesAreTheEnginesWordsOnOneLine) {
    EXPECT_EQ(title_of(*find_explanation("E27")), "Data is out of bounds.");
    EXPECT_EQ(title_of(*find_explanation("E49")), "Multiple ':'s!");
    EXPECT_EQ(title_of(*find_explanation("E115")),
              "\"#if\" Statement expects a floating-point value within ()s.");
    EXPECT_EQ(title_of(*find_explanation("E114")),
              "Error in \"#if\" Statement. (N.B. #if and #endif must be isolated to their own lines with no "
              "other data than whitespace.)");
}

TEST(Explanations, CodesAreReadAsPeopleTypeThem) {
    EXPECT_EQ(code_in_full("27"), "E27");
    EXPECT_EQ(code_in_full("e27"), "E27");
    EXPECT_EQ(code_in_full("[W10]"), "W10");
    EXPECT_EQ(code_in_full("einclude"), "Einclude");
    EXPECT_EQ(code_in_full("EINCLUDE"), "Einclude");
    EXPECT_EQ(code_in_full("l1"), "L1");
    EXPECT_EQ(code_in_full(""), "");
    EXPECT_EQ(code_in_full("[]"), "");
}

TEST(Explanations, NearestCodesAreThoseOfLikeNumbersOrLetters) {
    using Codes = std::vector<std::string>;
    EXPECT_EQ(nearest_codes("E66"), (Codes{"E65", "E64", "E63"}));
    EXPECT_EQ(nearest_codes("W17"), (Codes{"W15", "W19", "W14"}));
    EXPECT_EQ(nearest_codes("Einculde"), Codes{"Einclude"});
    EXPECT_EQ(nearest_codes("E9999"), Codes{});
    EXPECT_EQ(nearest_codes("Xylophone"), Codes{});
    EXPECT_EQ(nearest_codes(""), Codes{});
}

// "50000000" as "50,000,000", from six digits on.
std::string as_written(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size() - 3; number >= 100'000 && at > 0 && at < digits.size(); at -= 3) {
        digits.insert(at, ",");
    }
    return digits;
}

TEST(Explanations, TellTheLimitsOfTheEngine) {
    const std::pair<const char*, std::uint64_t> limits[] = {
        {"E27", MAX_TEMPOS},
        {"E32", MAX_EVENTS},
        {"E32", MAX_VALUES},
        {"E32", MAX_QUEUED},
        {"E35", MAX_PFIELD_COUNT},
        {"E39", MAX_SET_ELEMENTS},
        {"E45", MAX_QUEUED},
        {"E89", LINE_SIZE - 1},
        {"Ebeats", MAX_BEATS},
        {"Eendless", MAX_ENDLESS_LENGTH},
        {"Enesting", MAX_INCLUDE_FILES},
        {"Epath", MAX_INCLUDE_NAME},
        {"Epfields", MAX_PFIELD_COUNT},
    };
    for (const auto& [code, limit] : limits) {
        const Explanation explanation = *find_explanation(code);
        const std::string text = std::string(explanation.cause) + " " + std::string(explanation.cure);
        EXPECT_NE(text.find(" " + as_written(limit)), std::string::npos) << code << " " << as_written(limit);
    }
}

}  // namespace
}  // namespace vorn::kit
