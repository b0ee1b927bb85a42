#include "driver/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/failing_reads.h"
#include "support/run_case.h"

// Which files a run opens, in which order, and what it leaves when one is
// missing. The order shows in the file that the message names, and in the files
// that are there although the run has failed.

namespace {

using vorn_test::behind_banner;
using vorn_test::run_in_process;
using vorn_test::RunResult;
using vorn_test::WorkFolder;

const char* const SCORE = "i1 = 3 0 1 {\np2 1\np3 1\n}\n";

std::string cannot_open(const std::string& name) { return "\nERROR: Can't open \"" + name + "\".\n\n"; }

TEST(Files, InputIsOpenedFirst) {
    const WorkFolder folder;
    const RunResult result =
        run_in_process(folder, {"-l", "none/log", "-x", "none/exp", "missing.vorn", "none/out"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, cannot_open("missing.vorn"));
    EXPECT_TRUE(result.files.empty());
}

TEST(Files, OutputIsOpenedSecond) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    const RunResult result =
        run_in_process(folder, {"-l", "none/log", "-x", "none/exp", "in.vorn", "none/out"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, cannot_open("none/out"));
    EXPECT_EQ(result.files.size(), 1U);
}

TEST(Files, ExpansionFileIsOpenedThird) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    folder.write("out.sco", "an older score");
    const RunResult result =
        run_in_process(folder, {"-l", "none/log", "-x", "none/exp", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, cannot_open("none/exp"));
    EXPECT_EQ(result.files.at("out.sco"), "");
    EXPECT_FALSE(result.files.contains("none/log"));
}

TEST(Files, LogIsOpenedLastAndTheTemporaryFileRemoved) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    const RunResult result =
        run_in_process(folder, {"-l", "none/log", "-x", "run.exp", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, cannot_open("none/log"));
    EXPECT_EQ(result.files.at("run.exp"), "");
    EXPECT_EQ(result.files.at("out.sco"), "");
    EXPECT_STREQ(vorn::tmp_fname, "");
    EXPECT_EQ(vorn::ftmp, nullptr);
    EXPECT_EQ(vorn::fin, nullptr);
}

TEST(Files, OutputIsTruncatedBeforeIncludesAreChecked) {
    const WorkFolder folder;
    folder.write("in.vorn", "#include |missing.inc|\n");
    folder.write("out.sco", "an older score");
    const RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), "\nBad include file name: \"missing.inc\"\n\n");
    EXPECT_EQ(result.files.at("out.sco"), "");
}

TEST(Files, AnIncludeFileThatFailsWhileItIsReadStopsTheRun) {
    const WorkFolder folder;
    folder.write("in.vorn", "#include |block.inc|\n");
    folder.write("block.inc", SCORE);
    vorn::test::failing_file = "block.inc";
    const RunResult result = run_in_process(folder, {"-l", "run.log", "in.vorn", "out.sco"});
    vorn::test::failing_file.clear();
    const std::string message = "\n\tOpening include file \"block.inc\"..." + cannot_open("block.inc");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), message);
    EXPECT_EQ(behind_banner(result.files.at("run.log")), message);
    EXPECT_EQ(result.files.at("out.sco"), "");
}

TEST(Files, ARefusedNameClashTouchesNothing) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    folder.write("out.sco", "an older score");
    const RunResult result = run_in_process(folder, {"-l", "in.vorn", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.files.at("in.vorn"), SCORE);
    EXPECT_EQ(result.files.at("out.sco"), "an older score");
}

TEST(Files, NoneIsLeftOpenAfterARun) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    EXPECT_EQ(run_in_process(folder, {"-l", "run.log", "-x", "run.exp", "in.vorn", "out.sco"}).status, 0);
    EXPECT_STREQ(vorn::tmp_fname, "");
    EXPECT_EQ(vorn::ftmp, nullptr);
    EXPECT_EQ(vorn::fin, nullptr);
}

}  // namespace
