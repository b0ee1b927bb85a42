#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "driver/run.h"
#include "kit/diagnose/from_messages.h"

#include "tests/kit/lint_notes.h"

// Each rule: what it finds and where, and what comes near to that and is right.

namespace vorn::kit::test {

namespace {

// --- L1: flats spelt with "b" ---

TEST(FlatsSpeltWithB, AreTwoNotes) {
    EXPECT_EQ(notes_of(four_events("p4 no bb4 eb4:g")), (Notes{"L1 4:7 bb4", "L1 4:11 eb4"}));
    EXPECT_EQ(notes_of(four_events("p4 no ab gb3")), (Notes{"L1 4:7 ab", "L1 4:10 gb3"}));
}

TEST(FlatsSpeltWithB, AreFoundInSetsAndBehindEachOther) {
    EXPECT_EQ(notes_of(four_events("p4 no se(T 1 [bb4 c])")), (Notes{"L1 4:15 bb4"}));
    EXPECT_EQ(notes_of(four_events("p4 no eb4bb4")), (Notes{"L1 4:7 eb4", "L1 4:10 bb4"}));
}

TEST(FlatsSpeltWithB, AreCuredByAnEdit) {
    const std::vector<Diagnostic> notes = found_in(four_events("p4 no ebb4 c"));
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].text, "\"ebb4\" is read as 3 notes, e, b and b4.");
    ASSERT_EQ(notes[0].edits.size(), 1U);
    EXPECT_EQ(notes[0].edits[0].replacement, "eff4");
}

TEST(FlatsSpeltWithB, OutOfAMacroHaveNoEdit) {
    const std::vector<Diagnostic> notes = found_in("#define A #bb4 c#\n" + four_events("p4 no $A"));
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_TRUE(notes[0].edits.empty());
    ASSERT_EQ(notes[0].through.size(), 1U);
    EXPECT_EQ(notes[0].through[0].name, "A");
}

TEST(FlatsSpeltWithB, AreNotSuspectedInRightNames) {
    for (const char* names :
         {"no bf4 ef4 b4 bs", "no b b4 b", "no e b4", "no c4:b:b5", "no b4 x2 b", "no rb"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + names)), Notes{}) << names;
    }
}

// Two letters that are an input type: the notes behind them would be no notes.
TEST(FlatsSpeltWithB, OfDAreTheInputTypeOfDecibels) {
    const std::vector<Diagnostic> notes = found_in(four_events("p4 no c4 e g db4"));
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].text, "\"db4\" is read as the input type of decibels, and a value.");
    ASSERT_EQ(notes[0].edits.size(), 1U);
    EXPECT_EQ(notes[0].edits[0].replacement, "df4");
    EXPECT_EQ(notes_of(four_events("p4 no c4 e g db")), (Notes{"L1 4:14 db"}));
    for (const char* types : {"no c4 db 60 65 70", "db 60 65", "no c4 db60", "re 4 db 60"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + types)), Notes{}) << types;
    }
}

// "c4eg" is how names may be run together, and among them "gb" are two notes.
TEST(FlatsSpeltWithB, AreNotesWhereOthersAreRunTogetherToo) {
    EXPECT_EQ(notes_of(four_events("p4 no ceg gb")), (Notes{"L12 4:12 b"}));
    EXPECT_EQ(notes_of(four_events("p4 no s2(T 1 [c4eg gb])")), Notes{});
}

// --- L2: a decimal comma ---

TEST(DecimalComma, PartsTwoValues) {
    EXPECT_EQ(notes_of(four_events("p4 0,5 0,25")), (Notes{"L2 4:4 0,5", "L2 4:8 0,25"}));
    EXPECT_EQ(notes_of(four_events("p4 1,5 2 7")), (Notes{"L2 4:4 1,5"}));
}

TEST(DecimalComma, IsNotSuspectedInLists) {
    for (const char* list : {"60,62 x3", "< 60,62 >", "0, 5", "0,5,7", "60,62 64,65", "9,10 11", "0,0",
                             "rh 4,16 8", ".5,.25", "< 1,5 >"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + list)), Notes{}) << list;
    }
    EXPECT_EQ(notes_of("i1 = 4 0 -2 {\np2 1\np3 1\np4 60,62\n}\n"), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 ra(T 1 [0,5])")), Notes{});
}

// What the cures of the notes put in their places; "-" for a note without one.
std::string cures_of(const std::string& statement) {
    std::string cures;
    for (const Diagnostic& note : found_in(four_events(statement))) {
        if (note.code == "L2") cures += (note.edits.empty() ? "-" : note.edits[0].replacement) + " ";
    }
    return cures;
}

TEST(DecimalComma, IsSuspectedWhereAStatementHasNothingElse) {
    for (const char* pair : {"1,5", "440,5", "2,3", "60,62", "db 60,5", "1,5 x3"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + pair)).size(), 1U) << pair;
    }
    EXPECT_EQ(notes_of(four_events("p4 261,63 293,66")), (Notes{"L2 4:4 261,63", "L2 4:11 293,66"}));
    EXPECT_EQ(notes_of("i1 = 3 0 8 {\np2 1,5\np3 1\n}\n"), (Notes{"L2 2:4 1,5"}));
    EXPECT_EQ(cures_of("p4 1,5"), "- ");
}

TEST(DecimalComma, HasACureWhereItIsCertain) {
    EXPECT_EQ(cures_of("p4 0,9"), "0.9 ");
    EXPECT_EQ(cures_of("p4 0,5 0,25 2 0,7"), "0.5 0.25 0.7 ");  // too many values, as they are read
    EXPECT_EQ(cures_of("p4 0,5 ra(T 1 [1, 2])"), "0.5 ");
    EXPECT_EQ(cures_of("p4 1,5 2 0,5"), "- 0.5 ");
}

TEST(DecimalComma, HasNoneWhereTwoValuesMayBeMeant) {
    EXPECT_EQ(cures_of("p4 0,10"), "- ");
    EXPECT_EQ(cures_of("p4 0,7 4, 7"), "- ");       // another comma parts values
    EXPECT_EQ(cures_of("p4 0,5 1 2 3 4 5"), "- ");  // it would not fit with a point either
    EXPECT_EQ(cures_of("p4 in 0,5"), "- ");         // a whole number
    EXPECT_EQ(found_in("#define A #0,5#\n" + four_events("p4 $A"))[0].edits.size(), 0U);
}

// --- L3: values run together ---

TEST(ValuesRunTogether, AreSeveral) {
    EXPECT_EQ(notes_of(four_events("p4 60-62 1")), (Notes{"L3 4:4 60-62"}));
    EXPECT_EQ(notes_of(four_events("p4 1 1.2.3")), (Notes{"L3 4:6 1.2.3"}));
    EXPECT_EQ(notes_of(four_events("p4 ra(T 1 [60-62])")), (Notes{"L3 4:12 60-62"}));
    EXPECT_EQ(notes_of(four_events("p4 mo(T 1 60-72)")), (Notes{"L3 4:11 60-72"}));
}

TEST(ValuesRunTogether, AreFractionsWithASlash) {
    EXPECT_EQ(notes_of("i1 = 3, 0, -4 {\np2 1/2\np3 1\n}\n"), (Notes{"L3 2:4 1/2"}));
    const std::vector<Diagnostic> notes = found_in("i1 = 3, 0, -4 {\np2 3/4\np3 1\n}\n");
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].advice.at(0), "Write the fraction as a number, 0.75.");
}

// "1/4" is a whole note and a quarter.
TEST(ValuesRunTogether, AreFractionsOfAWholeNote) {
    EXPECT_EQ(notes_of(four_events("p4 rh 1/4 1/8")), (Notes{"L3 4:7 1/4", "L3 4:11 1/8"}));
    EXPECT_EQ(notes_of("i1 = 3, 0, -4 {\np2 rh 4/4 2/4\np3 1\n}\n"), (Notes{"L3 2:7 4/4", "L3 2:11 2/4"}));
    const std::pair<const char*, const char*> notes[] = {
        {"1/4", "write 4."},  {"4/4", "write 1."},   {"2/4", "write 2."},       {"3/8", "write 4.."},
        {"3/4", "write 2.."}, {"7/8", "write 2..."}, {"5/8", "beats, re 2.5."}, {"9/16", "beats, re 2.25."}};
    for (const auto& [fraction, cure] : notes) {
        const std::vector<Diagnostic> found = found_in(four_events(std::string("p4 rh ") + fraction + " 4"));
        ASSERT_EQ(found.size(), 1U) << fraction;
        EXPECT_TRUE(found[0].advice.at(0).ends_with(cure)) << found[0].advice.at(0);
    }
    for (const char* list : {"rh 4/ 8", "rh 8// 4", "rh 8/4", "rh 4/6", "rh 4/8/8", "no c/e", "op 8/8"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + list)), Notes{}) << list;
    }
}

TEST(ValuesRunTogether, ArePartedByAnythingElse) {
    for (const char* list :
         {"60 -62", "60,-62", "60:-62", "60// 62", "60//62", "60/ 62", "62/60", "60/62/64", "60x2 62",
          "no c4d", "rh 4..", "rh 8.,16", "ex(T 1 [p3-1])", "ra(-4 .5 -1 .5 2)"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + list)), Notes{}) << list;
    }
}

// --- L4: text behind the block ---

const std::string SMALL_BLOCK = "i1 = 3, 0, -1 {\np2 1\np3 1 }";

TEST(TextBehindBlock, IsLeftOut) {
    EXPECT_EQ(notes_of(SMALL_BLOCK + " i2 = 3 0 1 { ; more\n; end\n"), (Notes{"L4 3:8 i2 = 3 0 1 {"}));
    EXPECT_EQ(notes_of(SMALL_BLOCK + "}\n\n"), (Notes{"L4 3:7 }"}));
    EXPECT_EQ(notes_of(SMALL_BLOCK + " te(90)"), (Notes{"L4 3:8 te(90)"}));  // of a last line without an end
}

TEST(TextBehindBlock, MayBeACommentOrTheLastLine) {
    EXPECT_EQ(notes_of(SMALL_BLOCK + " ; text\n\n"), Notes{});
    EXPECT_EQ(notes_of(SMALL_BLOCK + " /* text */ \n\n"), Notes{});
    EXPECT_EQ(notes_of(SMALL_BLOCK + " i2 = 3 0 -1 { p2 1 p3 1 }\n"), Notes{});  // is read
}

TEST(TextBehindBlock, GetsALineByAnEdit) {
    const std::vector<Diagnostic> notes = found_in(SMALL_BLOCK + " te(90)\n\n");
    ASSERT_EQ(notes.size(), 1U);
    ASSERT_EQ(notes[0].edits.size(), 1U);
    EXPECT_EQ(notes[0].edits[0].replacement, "\n");
    EXPECT_EQ(notes[0].edits[0].span.begin, notes[0].edits[0].span.end);
}

// --- L5: a start just before the end ---

TEST(StartJustBeforeEnd, IsOneTooMany) {
    const std::vector<Diagnostic> notes = found_in("i1 = 3, 0, 4 {\np2 rh 12\np3 1 }\n");
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].code, "L5");
    EXPECT_EQ(notes[0].advice.at(0), "Without that event, give the length as -12 events.");
    EXPECT_EQ(notes_of("i1 = 3, 8, 40 { ; forty\np2 rh 5\np3 1 }\n"), (Notes{"L5 1:12 40"}));
    EXPECT_EQ(notes_of("i1 = 3 0 1{\np2 .333\np3 1 }\n"), (Notes{"L5 1:10 1"}));
}

TEST(StartJustBeforeEnd, IsRightWhereStartsAreExactOrDense) {
    EXPECT_EQ(notes_of("i1 = 3, 0, 4 {\np2 .25\np3 1 }\n"), Notes{});
    EXPECT_EQ(notes_of("i1 = 3, 0, -12 {\np2 rh 12\np3 1 }\n"), Notes{});
    EXPECT_EQ(notes_of("i1 = 3, 0, .1 {\np2 .0009\np3 1 }\n"), Notes{});
    EXPECT_EQ(notes_of("i1 = 3, 0, 4 {\np2 1.3\np3 1 }\n"), Notes{});
}

// --- L6: a chord in a loop of P2 ---

TEST(ChordInStartLoop, EndsABlockInBeatsEarly) {
    EXPECT_EQ(notes_of("i1 = 3, 0, 16 {\np2 < 1:2 1 >\np3 1 }\n"), (Notes{"L6 2:7 :"}));
    EXPECT_EQ(notes_of("te(0 8 60 90)\ni1 = 3, 0, 16 {\np2 < 1:2 1 >\np3 1 }\n"), (Notes{"L6 3:7 :"}));
}

// The engine counts two beats for a chord of 1:1, so that it has all of them early.
TEST(ChordInStartLoop, EndsShortBlocksEarlyToo) {
    for (const char* beats : {"3", "4", "5"}) {
        const std::string score = "i1 = 3, 0, " + std::string(beats) + " {\np2 < 1:1 >\np3 1 }\n";
        EXPECT_EQ(notes_of(score), (Notes{"L6 2:7 :"})) << beats;
    }
    EXPECT_EQ(notes_of("te(90)\ni1 = 3, 2, 6 {\np2 < 1:2 >\np3 1 }\n"), (Notes{"L6 3:7 :"}));
    EXPECT_EQ(notes_of("i1 = 3, 0, 2 {\np2 < 1:1 >\np3 1 }\n"), (Notes{"L6 2:7 :"}));
}

// Whether it is said of a block of this length with these starts.
bool is_said_of(const std::string& length_and_starts) {
    const std::vector<Diagnostic> notes = found_in("i1 = 4 0 " + length_and_starts + "\np3 1\np4 60}\n");
    return std::any_of(notes.begin(), notes.end(), [](const Diagnostic& note) { return note.code == "L6"; });
}

// The interval of the last event is its own, however much longer than the one before it.
TEST(ChordInStartLoop, FillsBlocksThatEndWithTheLongestInterval) {
    for (const char* block :
         {"1 {p2 <1:1>", "3 {p2 <1:1 2>", "4 {p2 <1:1 3>", "5 {p2 <1:1 4>", "6 {p2 <2:2 4>",
          "8 {p2 4 <1:1 3>", "4 {p2 <1:1 1 2>", "4 {p2 <1:1:1 3>", "4 {p2 <1:4>"}) {
        EXPECT_FALSE(is_said_of(block)) << block;
    }
    for (const char* block : {"4 {p2 <1:1 2>", "7 {p2 <1:1 2>", "5 {p2 <1:1 3>", "9 {p2 4 <1:1 3>"}) {
        EXPECT_TRUE(is_said_of(block)) << block;
    }
}

// The chord lasts two seconds at 60, what follows one at 120: two beats each.
TEST(ChordInStartLoop, CountsEachIntervalAtItsTempo) {
    EXPECT_EQ(notes_of("te(0 3 60 60)\nte(3 8 120 120)\ni1 = 4 0 4 {p2 <2:1 2>\np3 1\np4 60}\n"), Notes{});
}

// The intervals of this seed are 1.06 and 1.68.
TEST(ChordInStartLoop, AllowsForDeviations) {
    EXPECT_EQ(notes_of("rs(2)\ni1 = 4 0 3 {p2 rd(.2) <1:1 2>\np3 1\np4 60}\n"), Notes{});
}

TEST(ChordInStartLoop, IsRightInEventsAndOutsideOfLoops) {
    EXPECT_EQ(notes_of("i1 = 3, 0, -16 {\np2 < 1:2 1 >\np3 1 }\n"), Notes{});
    EXPECT_EQ(notes_of("i1 = 3, 0, 16 {\np2 1:2 < 1 >\np3 1 }\n"), Notes{});
}

// --- L7: durations in beats of the last tempo ---

TEST(BeatsOfLastTempo, AreNotThoseOfTheOtherEvents) {
    EXPECT_EQ(notes_of("te(0 8 60 120)\ni1 = 3, 0, -9 {\np2 1\np3 < .5 402 >\n}\n"), (Notes{"L7 4:9 402"}));
    EXPECT_EQ(notes_of("te(60)\nte(4 4 90 90)\ni1 = 3, 0, -9 {\np2 1\np3 ra(T 1 [401 402])\n}\n"),
              (Notes{"L7 5:12 401"}));
}

TEST(BeatsOfLastTempo, AreRightWhileTheTempoStays) {
    EXPECT_EQ(notes_of("te(90)\ni1 = 3, 0, -9 {\np2 1\np3 402\n}\n"), Notes{});
    EXPECT_EQ(notes_of("te(0 8 60 120)\ni1 = 3, 0, -9 {\np2 1\np3 1002 202 .5\n}\n"), Notes{});
    EXPECT_EQ(notes_of("te(0 8 60 120)\ni1 = 3, 20, -9 {\np2 1\np3 402\n}\n"), Notes{});
    // A tempo is that of the blocks behind it.
    EXPECT_EQ(notes_of("i1 = 3, 0, -9 {\np2 1\np3 402\n}\nte(0 8 60 120)\n"), Notes{});
}

TEST(BeatsOfLastTempo, AreThoseOfTheTempoInForce) {
    const std::string block = "i1 = 3, 0, -9 {\np2 1\np3 402\n}\n";
    EXPECT_EQ(notes_of(block + "te(0 8 60 120)\n" + block + "te(0 8 90 90)\n" + block),
              (Notes{"L7 8:4 402"}));
}

// --- L8: blocks that drift apart ---

std::string pulse(const std::string& start, const std::string& length, const std::string& interval) {
    return "i1 = 3, " + start + ", " + length + " {\np2 " + interval + "\np3 1\n}\n";
}

TEST(BlocksDrift, WhereOneBeginsLaterUnderACurve) {
    const std::vector<Diagnostic> notes =
        found_in("te(0 8 60 120)\n" + pulse("0", "16", "1") + pulse("4", "8", "1"));
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].code, "L8");
    // 4 beats at 75 beats per minute; 60 / 60 + 60 / 60.9375 + 60 / 63.75 + 60 / 68.4375.
    EXPECT_EQ(notes[0].text,
              "Beat 4 comes at 3.2 seconds here and at 3.8025 in the block of line 2: the tempo moves.");
    ASSERT_EQ(notes[0].notes.size(), 1U);
}

TEST(BlocksDrift, WhereIntervalsFollowTheCurveUnlike) {
    EXPECT_EQ(notes_of("te(0 8 60 240 f)\n" + pulse("0", "8", ".25") + pulse("0", "8", "4")),
              (Notes{"L8 6:1 i"}));
}

TEST(BlocksDrift, NotWhereTheyStepTogetherOrTheTempoStays) {
    EXPECT_EQ(notes_of("te(0 8 60 120)\n" + pulse("0", "16", "1") + pulse("0", "8", "1")), Notes{});
    EXPECT_EQ(notes_of("te(90)\n" + pulse("0", "16", "1") + pulse("4", "8", ".5")), Notes{});
    EXPECT_EQ(notes_of("te(0 8 60 120)\n" + pulse("0", "4", "1") + pulse("12", "8", "1")), Notes{});
    // Deviations are no drift.
    EXPECT_EQ(notes_of("te(90)\nrd(.5)\n" + pulse("0", "64", "1") + pulse("4", "60", "1")), Notes{});
}

// --- L9: constants that lose digits ---

std::string content_of(const std::string& name) {
    std::ifstream file(name);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string written_file(const std::string& score) {
    const std::string name = testing::TempDir() + "lint_rules.vorn";
    std::ofstream(name) << score;
    return name;
}

const std::string USES_A = "i1 = 3, ~A, -1 {\np2 1\np3 1\n}\n";

TEST(DigitsLost, OnTheWayIntoALine) {
    const std::vector<Diagnostic> notes = found_in("#const A .244792\n" + USES_A);
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].text, "The constant A yields 0.245 instead of 0.244792.");
    EXPECT_EQ(notes_of("#const A .244792\n" + USES_A), (Notes{"L9 1:10 .244792"}));
}

TEST(DigitsLost, OfAnEquationThatDefinesAConstant) {
    EXPECT_EQ(notes_of("#const B ~[2.9375 / 12]\n"), (Notes{"L9 1:10 ~[2.9375 / 12]"}));
    EXPECT_EQ(notes_of("#const A 2.9375\n#const B ~[A / 12]\n"), (Notes{"L9 2:10 ~[A / 12]"}));
}

TEST(DigitsLost, OfAnEquationAmongValues) {
    const std::string score = "i1 = 3, 0, -1 {\np2 ~[47 / 192] ~[3 / 12]\np3 1\n}\n";
    ASSERT_EQ(notes_of(score), (Notes{"L9 2:4 ~[47 / 192]", "L12 2:16 ~[3 / 12]"}));
    EXPECT_EQ(found_in(score)[0].text, "The equation yields 0.245 instead of 0.244792.");
    EXPECT_EQ(notes_of("#define A #~[47 / 192]#\ni1 = 3, $A, -1 {\np2 1\np3 1\n}\n"), (Notes{"L9 2:9 $A"}));
}

TEST(DigitsLost, NoneOfThreeDecimalsAndNoneInEquations) {
    EXPECT_EQ(notes_of("#const A .125\n" + USES_A), Notes{});
    EXPECT_EQ(notes_of("#const A 12\n" + USES_A), Notes{});
    EXPECT_EQ(notes_of("#const A 2.9375\n#const B ~[A * 16]\n"), Notes{});
    EXPECT_EQ(notes_of("#const B ~[3 / 12]\n"), Notes{});
}

// Asking what an equation yields must not draw from the random sequence.
TEST(DigitsLost, AsksNothingOfAnEquationThatDraws) {
    const std::string score = "#const B ~[? / 7]\n" + four_events("p4 ra(T 1 [~B 100])");
    const std::string file = written_file(score);
    const std::string by_vorn = testing::TempDir() + "lint_by_vorn.score";
    const char* const arguments[] = {"vorn", "-s", file.c_str(), by_vorn.c_str(), nullptr};
    std::FILE* const silence = std::fopen(NOWHERE, "w");
    ASSERT_EQ(run_program(4, arguments, {silence, silence}), 0);
    std::fclose(silence);
    RunOptions options;
    options.output = testing::TempDir() + "lint_by_kit.score";
    EXPECT_EQ(lint(run_text(score, options), {}).size(), 0U);
    EXPECT_EQ(content_of(options.output), content_of(by_vorn));
    for (const std::string& name : {file, by_vorn, options.output}) std::remove(name.c_str());
}

// --- L10: settings behind a loop ---

TEST(SettingBehindLoop, ReachesLaterRoundsOnly) {
    EXPECT_EQ(notes_of(four_events("p4 < 60 62 > pf(2)")), (Notes{"L10 4:14 pf(2)"}));
    EXPECT_EQ(notes_of(four_events("p4 < ra(-2 1 [1 9]) > dv(.1)")), (Notes{"L10 4:23 dv(.1)"}));
}

TEST(SettingBehindLoop, IsRightBeforeItAndWhereNoRoundFollows) {
    EXPECT_EQ(notes_of(four_events("p4 pf(2) < 60 62 >")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 < 60 62 64 65 > pf(2)")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 < 60:61 62 64 65 > pf(2)")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 < 60 62 > rs(3)")), Notes{});
}

// --- L11: an unclosed loop ---

TEST(UnclosedLoop, EndsWithItsStatement) {
    EXPECT_EQ(notes_of(four_events("p4 60 < 62 64")), (Notes{"L11 4:7 <"}));
    EXPECT_EQ(notes_of("i1 = 3, 0, -4 {\np2 < 1\np3 1\n}\n"), (Notes{"L11 2:4 <"}));
}

TEST(UnclosedLoop, IsClosedAlsoBehindTheLastEvent) {
    EXPECT_EQ(notes_of(four_events("p4 < 62 64 >")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 < 1 2 3 4 5 >")), (Notes{"L12 4:14 5 >"}));
    EXPECT_EQ(notes_of(four_events("p4 62 64 ; <")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 62 /* < */ 64")), Notes{});
}

// --- what the engine warns of, too ---

std::vector<Diagnostic> told_of(const std::string& score) {
    const ScoreRun run = run_text(score);
    std::vector<Diagnostic> told = from_messages(run);
    add_lint(told, run, {});
    return told;
}

TEST(LintBesideWarnings, TellsDroppedValuesOnce) {
    for (const char* statement : {"p4 1 2 3 4 5 6 7", "p4 1 2 3 4 pf(2) 5 6 7", "p4 1 2 3 4 x4",
                                  "p4 1 2 3 4 db5 6 7", "p4 1 2 3 4 ////"}) {
        const std::vector<Diagnostic> told = told_of(four_events(statement));
        ASSERT_EQ(told.size(), 1U) << statement;
        EXPECT_EQ(told[0].level, Level::WARNING);
        EXPECT_EQ(told[0].advice[0], "3 values of P4 have no event: the block has 4.");
    }
}

TEST(LintBesideWarnings, TellsAnOpenLoopOnce) {
    const std::vector<Diagnostic> told = told_of(four_events("p4 < 62 64\np5 1", 5));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].code, "W15");
    EXPECT_EQ(told[0].advice[0], "This loop is not closed: it ends with the statement of P4.");
}

TEST(LintBesideWarnings, CountsThemAtEveryWarning) {
    std::string score;
    for (int n = 0; n < 1000; ++n) score += four_events("p4 1 2 3 4 5");
    const std::vector<Diagnostic> told = told_of(score);
    ASSERT_EQ(told.size(), 1000U);
    for (const Diagnostic& warning : told) {
        EXPECT_EQ(warning.code, "W10");
        EXPECT_EQ(warning.advice[0], "1 value of P4 has no event: the block has 4.");
    }
}

TEST(LintBesideWarnings, TellsThemByItselfWhereTheEngineDoesNot) {
    const std::vector<Diagnostic> told = told_of(four_events("p4 1 2 3 4 ra(2 1 [6 7]) 8"));
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0].code, "W11");
    EXPECT_EQ(told[1].code, "L12");
}

// --- L12: values dropped ---

TEST(ValuesDropped, AreCounted) {
    EXPECT_EQ(found_in(four_events("p4 1 2 3 4 5 6 7")).at(0).text,
              "3 values of P4 have no event: the block has 4.");
    EXPECT_EQ(notes_of(four_events("p4 1 2 3 4 5 6 7")), (Notes{"L12 4:12 5 6 7"}));
    EXPECT_EQ(found_in(four_events("p4 1 2 x7 3")).at(0).text,
              "5 values of P4 have no event: the block has 4.");
    EXPECT_EQ(found_in(four_events("p4 1//// 2// 3")).at(0).text,
              "3 values of P4 have no event: the block has 4.");
    EXPECT_EQ(found_in(four_events("p4 mo(-4 1 1 2) 3 x2")).at(0).text,
              "2 values of P4 have no event: the block has 4.");
}

TEST(ValuesDropped, AreNoneInAListThatFitsOrFillsOnPurpose) {
    for (const char* list : {"1 2 3 4", "1 2", "1 x0", "1 2 x3", "mo(T 1 1 2)", "< 1 2 >", "1 x4 ; 5"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + list)), Notes{}) << list;
    }
}

// --- L16: rests that sound ---

TEST(RestsThatSound, AreRepeatedDrawnOrWrittenTwice) {
    EXPECT_EQ(notes_of(four_events("p4 no c4 r x2 e")), (Notes{"L16 4:10 r"}));
    EXPECT_EQ(notes_of(four_events("p4 no c4 r/ e")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 no c4 r// e")), (Notes{"L16 4:10 r"}));
    EXPECT_EQ(notes_of(four_events("p4(hz) no se(T 1 * [c4 r e f])")), (Notes{"L16 4:24 r"}));
    EXPECT_EQ(notes_of(four_events("p4 no c4 r e r\np5 no r r e f", 5)), (Notes{"L16 4:10 r", "L16 5:7 r"}));
    EXPECT_EQ(notes_of("i1 = 4, 0, -3 {\np2 1\np3 1 -1 1\np4 no c4 r e\n}\n"), (Notes{"L16 4:10 r"}));
}

TEST(RestsThatSound, AreCountedWithTheirReason) {
    const std::vector<Diagnostic> found = found_in(four_events("p4 no r x4"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "3 rests of P4 sound, as the number -1.");
    EXPECT_EQ(found[0].advice[0], "Of a repeated \"r\" only the first is a rest: write \"r r\".");
    EXPECT_EQ(found_in(four_events("p4 no ra(T 1 [r r])"))[0].advice[0],
              "A generator makes no rests here: draw them in P3, where -1 is one.");
    EXPECT_EQ(found_in(four_events("p4 no r r c4 d\np5 no r c e f", 5))[0].advice[0],
              "Two rests on one note cancel out: write the rest in one p-field only.");
    for (const char* chord : {"p4 no c4:r:e", "p4 no c4:r x4", "p4 no c4:r// e"}) {
        EXPECT_EQ(found_in(four_events(chord)).at(0).advice[0],
                  "A rest has no place in a chord that is repeated or held.")
            << chord;
    }
}

TEST(RestsThatSound, AreNoneThatAreSilentOrNumbers) {
    for (const char* statement : {"p4 no c4 r e r", "p4 no < c4 r >", "p4 no r c4 re -1", "p4 no c4 r re",
                                  "p4 re -1 2 no r c4", "p4 no c4:r:e f", "p4 no r ex(T 1 [p3 - 2])"}) {
        EXPECT_EQ(notes_of(four_events(statement)), Notes{}) << statement;
    }
    EXPECT_EQ(notes_of("i1 = 4, 0, -3 {\np2 1\np3 1 -1 1\np4 no c4 d r\n}\n"), Notes{});
}

// --- L17: blocks that are all rests ---

std::string silent_block(const std::string& p2, const std::string& p3) {
    return "i1 = 4 0 -4 {\np2 " + p2 + "\np3 " + p3 + "\np4 60\n}\n";
}

TEST(BlocksOfRests, AreToldAtTheirHeader) {
    for (const auto& [p2, p3] : {std::pair("1", "0"), {"1", "400"}, {"1", "1000"}, {"-1", "1"}, {"0", "1"}}) {
        EXPECT_EQ(notes_of(silent_block(p2, p3)), (Notes{"L17 1:1 i"})) << p2 << " " << p3;
    }
    EXPECT_EQ(notes_of(four_events("p4 no r")), (Notes{"L17 1:1 i"}));
    EXPECT_EQ(notes_of(silent_block("1", "1") + silent_block("1", "-1")), (Notes{"L17 6:1 i"}));
}

TEST(BlocksOfRests, AreToldWithTheirReason) {
    const std::vector<Diagnostic> found = found_in(silent_block("1", "0"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "This block makes no sound: all of its events are rests, 4 in all.");
    EXPECT_EQ(found[0].advice[0].substr(0, 10), "P3 of 0, 4");
    for (const char* p2 : {"0", "-1"}) {
        EXPECT_EQ(found_in(silent_block(p2, "1"))[0].advice[0].substr(0, 10), "P2 is the ") << p2;
    }
    EXPECT_EQ(found_in(silent_block("1", "-1"))[0].advice[0].substr(0, 10), "Each event");
}

TEST(BlocksOfRests, AreNotThoseOfWhichOneEventSounds) {
    for (const auto& [p2, p3] : {std::pair("1", "0 x3 1"), {"0", "1001"}, {"0", "400.5"}, {"1", "-1 1"}}) {
        EXPECT_EQ(notes_of(silent_block(p2, p3)), Notes{}) << p2 << " " << p3;
    }
}

// --- L18: times behind a loop ---

TEST(TimesBehindLoop, RepeatTheLastValueAlone) {
    EXPECT_EQ(notes_of("i1 = 4 0 -8 {\np2 1\np3 1\np4 < 60 62 >x2\n}\n"), (Notes{"L18 4:12 >x2"}));
    EXPECT_EQ(notes_of("i1 = 4 0 -8 {\np2 1\np3 1\np4 < 60 62 > x3 70\n}\n"), (Notes{"L18 4:12 > x3"}));
    EXPECT_EQ(notes_of("i1 = 4 0 -8 {\np2 1\np3 1\np4 < 60 62 >///\n}\n"), (Notes{"L18 4:12 >///"}));
    EXPECT_EQ(notes_of("i1 = 4 0 -8 {\np2 1\np3 1\np4 < 60 62 > / /\n}\n"), (Notes{"L18 4:12 > / /"}));
    EXPECT_EQ(found_in(four_events("p4 < 60 > x0"))[0].text,
              "\"x0\" repeats the last value of the loop, and not the loop.");
}

TEST(TimesBehindLoop, AreRightBehindAValue) {
    for (const char* list :
         {"< 60 62 x2 >", "< 60 62 /// >", "< 60 62 > /", "< 60 62 > 64 x2", "< 60 62 > x1", "60 x4"}) {
        EXPECT_EQ(notes_of(four_events(std::string("p4 ") + list)), Notes{}) << list;
    }
}

// --- L19: conditions that are not read ---

const std::string DEFINITIONS = "#const A 1\n#define M #1#\n";

std::string condition(const std::string& value) { return DEFINITIONS + "#if(" + value + ")\n#endif\n"; }

TEST(ConditionNotRead, IsAnythingButANumberOrACall) {
    for (const char* value :
         {"A", "A == 1", "~A == 1", "~A > 1", "~[A == 1]", "~[A = 1]", "~[$M + 0]", ".5", "-1", "yes", ""}) {
        EXPECT_EQ(notes_of(condition(value)), (Notes{"L19 3:1 #if(" + std::string(value) + ")"})) << value;
    }
    EXPECT_EQ(notes_of(four_events("p4 1\n  #if(A\n2\n#endif\n")), (Notes{"L19 5:3 #if(A"}));
}

TEST(ConditionNotRead, IsNoneThatHasAValue) {
    for (const char* value : {"0", " 1 ", "0.5", "~A", "~[A - 1]", "$M"}) {
        EXPECT_EQ(notes_of(condition(value)), Notes{}) << value;
    }
    EXPECT_EQ(notes_of(DEFINITIONS + "; #if(A)\n"), Notes{});
}

// --- with --midi ---

constexpr LintOptions FOR_MIDI = {.midi = true, .ignored = {}};

std::string midi_block(const std::string& p3, const std::string& p4, const std::string& p5) {
    return "i1 = 5, 0, -4 {\np2 1\np3 " + p3 + "\np4 " + p4 + "\np5 " + p5 + "\n}\n";
}

TEST(BlocksBehindFirst, AreLeftOutOfAMidiFile) {
    const std::string block = midi_block(".5", "16000", "60");
    EXPECT_EQ(notes_of(block + block, FOR_MIDI), (Notes{"L13 7:1 i"}));
    EXPECT_EQ(notes_of(block + block), Notes{});
    EXPECT_EQ(notes_of(block, FOR_MIDI), Notes{});
    EXPECT_EQ(notes_of(block + "i-2 = 5 0 1 { }\n", FOR_MIDI), Notes{});
}

TEST(BeyondMidiValues, KeysAndVelocities) {
    EXPECT_EQ(notes_of(midi_block(".5", "16000", "60 128"), FOR_MIDI), (Notes{"L14 5:1 p"}));
    EXPECT_EQ(notes_of(midi_block(".5", "100", "60"), FOR_MIDI), (Notes{"L14 4:1 p"}));
    EXPECT_EQ(found_in(midi_block(".5", "33100", "60"), FOR_MIDI).at(0).text,
              "4 notes have a velocity outside 1 to 127, the first 128.");
}

TEST(BeyondMidiValues, NotAtTheLimitsNorInRests) {
    EXPECT_EQ(notes_of(midi_block(".5", "259 32767", "0 127"), FOR_MIDI), Notes{});
    EXPECT_EQ(notes_of(midi_block(".5 -1 .5", "16000", "60 128 60"), FOR_MIDI), Notes{});
    EXPECT_EQ(notes_of(midi_block(".5", "16000", "no g9"), FOR_MIDI), Notes{});  // 127
    EXPECT_EQ(notes_of(midi_block(".5", "16000", "no gs9"), FOR_MIDI), (Notes{"L14 5:1 p"}));
}

TEST(VoicesOnOneKey, CutEachOther) {
    EXPECT_EQ(notes_of(midi_block("1.5", "16000", "60"), FOR_MIDI), (Notes{"L15 5:1 p"}));
}

TEST(VoicesOnOneKey, AreRightOnDifferentKeysAndOneByOne) {
    EXPECT_EQ(notes_of(midi_block("1.5", "16000", "60 62 64 65"), FOR_MIDI), Notes{});
    EXPECT_EQ(notes_of(midi_block("1", "16000", "60"), FOR_MIDI), Notes{});
    EXPECT_EQ(notes_of(midi_block(".9", "16000", "no c4:e:g"), FOR_MIDI), Notes{});
}

// --- all of them ---

TEST(Lint, IsSilencedByACommentOnTheLine) {
    EXPECT_EQ(notes_of(four_events("p4 0,5 ; vornkit: ignore L2")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 0,5 ; by ear; vornkit: ignore L1, L2")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 0,5 ; vornkit: ignore L1 L12")), (Notes{"L2 4:4 0,5"}));
    EXPECT_EQ(notes_of(four_events("p4 0,5\n; vornkit: ignore L2")), (Notes{"L2 4:4 0,5"}));
}

TEST(Lint, IsSilencedOnEachLineAndForEachRuleByItself) {
    const std::string list = "p4 0,5 0,25 ; vornkit: ignore L2\n0,5 ; vornkit: ignore L3\n0,5 1-2 1-3\n}\n";
    EXPECT_EQ(notes_of("i1 = 4, 0, -12 {\np2 1\np3 1\n" + list),
              (Notes{"L2 5:1 0,5", "L2 6:1 0,5", "L3 6:5 1-2", "L3 6:9 1-3"}));
    EXPECT_EQ(notes_of(four_events("p4 0,5 1-2 ; vornkit: ignore L3")), (Notes{"L2 4:4 0,5"}));
}

// A line of any length is looked through once, not for each of its findings or items.
TEST(Lint, ReadsLongLinesOnce) {
    constexpr std::size_t MANY = 200'000;
    std::string pairs = "p4 ";
    for (std::size_t n = 0; n < MANY; ++n) pairs += "1,5 ";
    const std::vector<Diagnostic> notes = found_in(four_events(pairs));
    EXPECT_GT(notes.size(), 0U);
    const std::string row(MANY, '/');
    EXPECT_EQ(notes_of(four_events("p4 60" + row)).size(), 1U);
    EXPECT_EQ(notes_of(four_events("p4 <60> 62" + row)).size(), 1U);
}

TEST(Lint, IsSilencedByOption) {
    const LintOptions options = {.midi = false, .ignored = {"L3"}};
    EXPECT_EQ(notes_of(four_events("p4 0,5 1-2"), options), (Notes{"L2 4:4 0,5"}));
}

TEST(Lint, StandsAmongTheMessagesByPlace) {
    const ScoreRun run = run_text("te(20)\n" + four_events("p4 0,5\n") + "te(20)\n");
    Diagnostic first;
    first.span = {0, 0, 1};
    Diagnostic last;
    last.span = {0, 60, 61};
    std::vector<Diagnostic> diagnostics = {Diagnostic(), first, last};
    add_lint(diagnostics, run, {});
    ASSERT_EQ(diagnostics.size(), 4U);
    EXPECT_EQ(diagnostics[1].code, "L2");
    EXPECT_EQ(diagnostics[2].span.begin, 60U);
    EXPECT_EQ(diagnostics[3].span.file, -1);
}

// Who has thousands of one kind is not helped by thousands of notes.
TEST(Lint, TellsTwoHundredOfAKindAndCountsTheOthers) {
    std::string list;
    for (int n = 0; n < 1000; ++n) list += "0,5 ";
    const std::vector<Diagnostic> found = found_in("i1 = 4, 0, -3000 {\np2 1\np3 1\np4 " + list + "\n}\n");
    ASSERT_EQ(found.size(), 200U);
    EXPECT_EQ(found.back().advice.back(), "The same holds of further places: 800.");
    EXPECT_EQ(found.front().advice.size() + 1, found.back().advice.size());
}

TEST(Lint, LooksAtTheBlocksBeforeAnError) {
    const std::string score = four_events("p4 0,5") + "i2 = 3, 0, {\n";
    EXPECT_NE(run_text(score).status, 0);
    EXPECT_EQ(notes_of(score), (Notes{"L2 4:4 0,5"}));
}

TEST(Lint, LeavesTheNextRunAsItWas) {
    const std::string score =
        "te(0 8 60 120)\n" + pulse("0", "16", "1") + pulse("4", "8", "1") + four_events("p4 nox c7 x");
    const ScoreRun before = run_text(score);
    (void)lint(before, FOR_MIDI);
    const ScoreRun after = run_text(score);
    ASSERT_EQ(after.blocks.size(), before.blocks.size());
    EXPECT_EQ(after.blocks[1].events.start, before.blocks[1].events.start);
}

// Text in a false condition is not read, by nobody.
TEST(Lint, IgnoresWhatAConditionLeavesOut) {
    EXPECT_EQ(notes_of(four_events("p4 1\n#if(0)\n0,5\n#endif\n2")), Notes{});
    EXPECT_EQ(notes_of(four_events("p4 1\n#if(1)\n0,5\n#endif\n2")), (Notes{"L2 6:1 0,5"}));
}

}  // namespace

}  // namespace vorn::kit::test
