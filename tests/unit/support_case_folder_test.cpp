#include "support/case_folder.h"

#include <gtest/gtest.h>

#include <stdexcept>

// The harness must see what differs: each test here is a case that ought to fail.

namespace vorn::test {
namespace {

const std::string FIGURES =
    "\n\n8 events generated in block #1 (i1).\n"
    "Total i-block duration:    3.95 (secs),    3.50 (beats)\n"
    "Cumulative i-block duration:    3.95 (secs)\n"
    "\n\nGlobal cumulative duration of all i-blocks =    3.95 (secs)\n\n";
const std::string BANNER =
    "\nVorn (2.1.2, Jan  2 2024, 03:04:05)\n\n\nInput\t= \"in.vorn\"\nOutput\t= \"out.sco\" ";

RunResult good_result() {
    RunResult result;
    result.status = 0;
    result.err = BANNER + "[Csound score-file]\n" + FIGURES;
    result.files = {{"in.vorn", "text"}, {"out.sco", "score\n"}};
    return result;
}

Case good_case() {
    return {"feature/case", {"in.vorn", "out.sco"}, {{"in.vorn", "text"}}, {{"expected.score", "score\n"}}};
}

TEST(Problems, NoneWhereAllIsAsExpected) { EXPECT_EQ(problems(good_case(), good_result()), ""); }

TEST(Problems, AStatusThatIsNotZero) {
    RunResult result = good_result();
    result.status = 1;
    EXPECT_NE(problems(good_case(), result), "");
}

TEST(Problems, AWarningThatNobodyExpects) {
    RunResult result = good_result();
    result.err += "\nWARNING: something";
    EXPECT_NE(problems(good_case(), result), "");
}

TEST(Problems, TextOnStandardOutput) {
    RunResult result = good_result();
    result.out = " ";
    EXPECT_NE(problems(good_case(), result), "");
}

TEST(Problems, AScoreThatNobodyExpects) {
    Case a_case = good_case();
    a_case.expected = {{"expected.err", FIGURES}};
    EXPECT_NE(problems(a_case, good_result()), "");
}

TEST(Problems, ATrailingBlank) {
    RunResult result = good_result();
    result.files["out.sco"] = "score \n";
    EXPECT_EQ(problems(good_case(), result),
              "expected.score differs from line 1, column 6 on\n"
              "  expected:\n  > 1: score\n  actual:\n  > 1: score \n");
}

TEST(Problems, ALongLineIsShownInPart) {
    RunResult result = good_result();
    result.files["out.sco"] = std::string(5000, 'x') + "\n";
    EXPECT_EQ(
        problems(good_case(), result),
        "expected.score differs from line 1, column 1 on\n  expected:\n  > 1: score\n  actual:\n  > 1: " +
            std::string(160, 'x') + "... (5000 characters)\n");
}

TEST(Problems, AMissingLineFeedAtTheEnd) {
    RunResult result = good_result();
    result.files["out.sco"] = "score";
    EXPECT_NE(problems(good_case(), result), "");
}

TEST(Problems, AFileLeftBehind) {
    RunResult result = good_result();
    result.files["core"] = "";
    EXPECT_EQ(problems(good_case(), result), "the run left core behind\n");
}

TEST(Problems, AnInputThatWasChanged) {
    RunResult result = good_result();
    result.files["in.vorn"] = "";
    EXPECT_EQ(problems(good_case(), result), "in.vorn was changed by the run\n");
}

TEST(Problems, NothingExpected) {
    Case a_case = good_case();
    a_case.expected = {};
    RunResult result = good_result();
    result.files["out.sco"] = "";
    EXPECT_EQ(problems(a_case, result), "the case expects nothing\n");
}

TEST(Problems, ALogNeedsItsExpectation) {
    Case a_case = good_case();
    a_case.arguments = {"-lrun.log", "in.vorn", "out.sco"};
    RunResult result = good_result();
    result.files["run.log"] = result.err;
    EXPECT_NE(problems(a_case, result), "");
    a_case.expected["expected.log"] = FIGURES;
    EXPECT_EQ(problems(a_case, result), "");
}

TEST(Messages, AreComparedWholeWhereTheBannerIsExpected) {
    Case a_case = good_case();
    a_case.expected["expected.err"] =
        "\nVorn (2.1.2, DATE, TIME)\n\n\nInput\t= \"in.vorn\"\nOutput\t= \"out.sco\" [Csound score-file]\n" +
        FIGURES;
    EXPECT_EQ(problems(a_case, good_result()), "");
    a_case.expected["expected.err"].replace(2, 1, "O");
    EXPECT_NE(problems(a_case, good_result()), "");
}

TEST(BehindBanner, LeavesOutLogAndExpansionLines) {
    EXPECT_EQ(behind_banner(BANNER + "[MIDI file (type 1)]\nLog \t= \"l\"\nMExp\t= \"x\"\n\nrest"), "\nrest");
    EXPECT_EQ(behind_banner("\nERROR: Can't open \"x\".\n\n"), "\nERROR: Can't open \"x\".\n\n");
}

TEST(WithoutChance, SpellsDateTimeAndTemporaryName) {
    EXPECT_EQ(without_chance("\nVorn (2.1.2, Jan  2 2024, 03:04:05)\n"), "\nVorn (2.1.2, DATE, TIME)\n");
    EXPECT_EQ(without_chance("\"/tmp/vornaB3dE6\""), "\"/tmp/vornXXXXXX\"");
}

TEST(LoadCase, RefusesAFileThatNobodyReads) {
    const WorkFolder folder;
    std::filesystem::create_directories(folder.path() / "feature/case");
    folder.write("feature/case/in.vorn", "");
    folder.write("feature/case/args", "-x 'two words' \"\" in.vorn\nout.sco\n");
    const Case a_case = load_case(folder.path(), "feature/case");
    EXPECT_EQ(a_case.arguments, (Arguments{"-x", "two words", "", "in.vorn", "out.sco"}));
    folder.write("feature/case/expected.scores", "");
    EXPECT_THROW(load_case(folder.path(), "feature/case"), std::runtime_error);
}

}  // namespace
}  // namespace vorn::test
