#include "kit/vary/variation.h"

#include <gtest/gtest.h>

#include "tests/kit/table_sources.h"

namespace vorn::kit {
namespace {

using test::run_text;
using test::TableSources;

const char* const BLOCK = "i1 = 4 0 4 {\np2 1\np3 1\np4 ra(T 1 [60 72])\n}\n";

std::string varied(const std::string& text, const Variation& variation, const std::string& value) {
    EXPECT_EQ(variation.error, "");
    return varied_text(variation, text, value);
}

TEST(FindSeed, TheFirstOneChangesAndNothingElse) {
    const std::string text = std::string("te(60)\r\nrs( 3 ) ; a seed\r\n") + BLOCK + "rs(9)\n" + BLOCK;
    const std::string wanted = std::string("te(60)\r\nrs( 65535 ) ; a seed\r\n") + BLOCK + "rs(9)\n" + BLOCK;
    EXPECT_EQ(varied(text, find_seed(run_text(text)), "65535"), wanted);
}

TEST(FindSeed, OneIsPutFirstWhereThereIsNone) {
    EXPECT_EQ(varied(BLOCK, find_seed(run_text(BLOCK)), "17"), std::string("rs(17)\n") + BLOCK);
    const std::string other = "; lines of another system\r\ni1 = 3 0 -1 {\r\np2 1\r\np3 1 }\r\n";
    EXPECT_EQ(varied(other, find_seed(run_text(other)), "17"), "rs(17)\r\n" + other);
}

TEST(FindSeed, AnInsertedSeedOfOneChangesNothing) {
    const ScoreRun plain = run_text(BLOCK);
    const ScoreRun seeded = run_text(varied(BLOCK, find_seed(plain), "1"));
    EXPECT_EQ(seeded.blocks.at(0).events.values, plain.blocks.at(0).events.values);
    const ScoreRun other = run_text(varied(BLOCK, find_seed(plain), "2"));
    EXPECT_NE(other.blocks.at(0).events.values, plain.blocks.at(0).events.values);
}

TEST(FindSeed, ACallBetweenTheParenthesesGivesWay) {
    const std::string text = std::string("#define SEED #5#\nrs($SEED)\n") + BLOCK;
    EXPECT_EQ(varied(text, find_seed(run_text(text)), "17"),
              std::string("#define SEED #5#\nrs(17)\n") + BLOCK);
}

TEST(FindSeed, ACallThatIsMoreThanTheNumberIsRefusedWithAWayOut) {
    const std::string text = std::string("#define START #rs(5) rd(.1)#\n$START\n") + BLOCK;
    const Variation variation = find_seed(run_text(text));
    EXPECT_NE(variation.error.find("comes out of a macro (in.vorn:2)"), std::string::npos) << variation.error;
    EXPECT_NE(variation.error.find("--set NAME=from..to"), std::string::npos);
}

TEST(FindSeed, AnIncludedOneIsFoundInItsFile) {
    TableSources sources{{"in.vorn", std::string("#include |seed.inc|\n") + BLOCK}, {"seed.inc", "rs(4)\n"}};
    const ScoreRun run = run_score("in.vorn", {}, sources);
    const Variation variation = find_seed(run);
    EXPECT_EQ(variation.file, 1);
    EXPECT_EQ(varied("rs(4)\n", variation, "8"), "rs(8)\n");
    EXPECT_EQ(run.map.joined_text(), std::string("rs(4)\n\n") + BLOCK);
}

// "rs(" stays at 6, its number goes from 9 to 12; what stands behind moves by the two digits more.
TEST(PlaceBefore, WhatStandsBehindALongerNumberMovesBack) {
    const std::string text = std::string("te(60)\nrs( 3 ) rd(.1)\n") + BLOCK;
    const Variation variation = find_seed(run_text(text));
    const std::string longer = varied(text, variation, "345");
    EXPECT_EQ(place_before(variation, "345", longer.find("rs(")), text.find("rs("));
    for (const std::size_t digit : {0U, 1U, 2U}) {
        EXPECT_EQ(place_before(variation, "345", longer.find("345") + digit), text.find('3'));
    }
    EXPECT_EQ(place_before(variation, "345", longer.find("rd(")), text.find("rd("));
    EXPECT_EQ(place_before(variation, "345", longer.size()), text.size());
}

TEST(PlaceBefore, AnInsertedLineIsNone) {
    const Variation variation = find_seed(run_text(BLOCK));
    const std::string longer = varied(BLOCK, variation, "17");
    EXPECT_EQ(place_before(variation, "17", 0), 0U);
    EXPECT_EQ(place_before(variation, "17", longer.find("i1")), 0U);
    EXPECT_EQ(place_before(variation, "17", longer.find("p4")), std::string(BLOCK).find("p4"));
}

TEST(FindName, ConstantsAndMacrosThatAreNumbers) {
    const std::string text =
        std::string("#const TEMPO 60 ; slow\nte(~TEMPO)\n#define LOUD # -80.5 #\n#const X -1.5\n") + BLOCK;
    const ScoreRun run = run_text(text);
    const Variation tempo = find_name(run, "TEMPO");
    EXPECT_EQ(tempo.kind, Varied::CONSTANT);
    EXPECT_NE(varied(text, tempo, "72.5").find("#const TEMPO 72.5 ; slow\n"), std::string::npos);
    EXPECT_TRUE(has_value(run_text(varied(text, tempo, "72.5")), tempo, "72.5"));
    EXPECT_FALSE(has_value(run, tempo, "72.5"));
    const Variation loud = find_name(run, "LOUD");
    EXPECT_EQ(loud.kind, Varied::MACRO);
    EXPECT_NE(varied(text, loud, "3").find("#define LOUD # 3 #\n"), std::string::npos);
    EXPECT_TRUE(has_value(run_text(varied(text, loud, "3")), loud, "3"));
    EXPECT_NE(varied(text, find_name(run, "X"), "2").find("#const X 2\n"), std::string::npos);
}

TEST(FindName, WhatIsNoNumberOrNotThereIsRefused) {
    const std::string text = std::string("#define TUNE #60 62#\n#const TWICE ~[2 * 3]\n") + BLOCK;
    const ScoreRun run = run_text(text);
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(find_name(run, "TUNE").error.find("TUNE (in.vorn:1) is not a plain number"), std::string::npos);
    EXPECT_NE(find_name(run, "TWICE").error.find("TWICE (in.vorn:2) is not a plain number"),
              std::string::npos);
    EXPECT_EQ(find_name(run, "TEMPO").error,
              "the score defines no constant or macro \"TEMPO\"; it has TWICE, TUNE");
}

}  // namespace
}  // namespace vorn::kit
