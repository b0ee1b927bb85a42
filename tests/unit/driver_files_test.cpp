#include "driver/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "driver/temporary_file.h"
#include "input/run_flags.h"
#include "output/output_file.h"
#include "support/failing_allocations.h"
#include "support/failing_reads.h"
#include "support/run_case.h"

// Which files a run opens, in which order, and what it leaves when one is
// missing. The order shows in the file that the message names, and in the files
// that are there although the run has failed.

namespace {

using vorn::test::behind_banner;
using vorn::test::run_in_process;
using vorn::test::RunResult;
using vorn::test::WorkFolder;

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

// That its buffer finds no room says nothing of the file, which stays as it is.
TEST(Files, OutputWithoutMemoryIsToldApartFromOneThatCannotBeOpened) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    folder.write("out.sco", "an older score");
    vorn::test::allocations_left = 0;
    const RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
    vorn::test::allocations_left = vorn::test::ANY_NUMBER;
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "\nERROR: Yikes, out of memory!\n\n");
    EXPECT_EQ(result.files.at("out.sco"), "an older score");
    EXPECT_EQ(vorn::fin, nullptr);
    EXPECT_EQ(vorn::fout.stream, nullptr);
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

const char* const CLASH = "\nERROR: You can't use a filename multiple times!\n\n";

TEST(Files, AnOutputThatIsIncludedIsRefusedAndKeepsItsText) {
    for (const char* name : {"part.inc", "symbolic", "hard"}) {
        for (const vorn::test::Arguments& arguments : {vorn::test::Arguments{"in.vorn", name},
                                                       {"-l", name, "in.vorn", "out.sco"},
                                                       {"-x", name, "in.vorn", "out.sco"},
                                                       {"-m", "in.vorn", name}}) {
            SCOPED_TRACE(arguments.front() + " " + name);
            const WorkFolder folder;
            folder.write("in.vorn", "#include |first.inc|#include |part.inc|\n");
            folder.write("first.inc", "; a comment\n");
            folder.write("part.inc", SCORE);
            std::filesystem::create_symlink("part.inc", folder.path() / "symbolic");
            std::filesystem::create_hard_link(folder.path() / "part.inc", folder.path() / "hard");
            const RunResult result = run_in_process(folder, arguments);
            EXPECT_EQ(result.status, 1);
            EXPECT_EQ(behind_banner(result.err),
                      "\n\tOpening include file \"first.inc\"..." + std::string(CLASH));
            EXPECT_EQ(result.files.at("part.inc"), SCORE);
        }
    }
}

TEST(Files, OfOutputsOnlyTheIncludedOneKeepsItsText) {
    const WorkFolder folder;
    folder.write("in.vorn", "#include |part.inc|\n");
    folder.write("part.inc", SCORE);
    folder.write("run.log", std::string(5000, 'x'));
    folder.write("run.exp", "an older text");
    const RunResult result =
        run_in_process(folder, {"-l", "run.log", "-x", "run.exp", "in.vorn", "part.inc"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.files.at("run.log")), CLASH);
    EXPECT_EQ(result.files.at("run.exp"), "");
    EXPECT_EQ(result.files.at("part.inc"), SCORE);
}

// However much the log had to tell before.
TEST(Files, ALogThatIsIncludedKeepsItsTextBehindLongNames) {
    std::string long_name = "in.vorn";
    for (int at = 0; at < 2000; ++at) long_name.insert(0, "./");
    const WorkFolder folder;
    folder.write("in.vorn", "#include |first.inc|#include |run.log|\n");
    folder.write("first.inc", "; a comment\n");
    folder.write("run.log", SCORE);
    const RunResult result = run_in_process(folder, {"-l", "run.log", long_name, "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), "\n\tOpening include file \"first.inc\"..." + std::string(CLASH));
    EXPECT_EQ(result.files.at("run.log"), SCORE);
}

// Opening has made it, so it is there to be included.
TEST(Files, ANewOutputCannotBeIncludedEither) {
    const WorkFolder folder;
    folder.write("in.vorn", "#include |out.sco|\n");
    const RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), CLASH);
    EXPECT_EQ(result.files.at("out.sco"), "");
}

TEST(Files, ADeviceMayBeWrittenAndIncluded) {
    const WorkFolder folder;
    folder.write("in.vorn", "#include |/dev/null|\n" + std::string(SCORE));
    EXPECT_EQ(run_in_process(folder, {"in.vorn", "/dev/null"}).status, 0);
}

// The beginning of such a log has left the buffer of its stream before the old text is cut off.
TEST(Files, NothingOfOlderTextsIsLeft) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    const RunResult fresh = run_in_process(folder, {"-l", "run.log", "-x", "run.exp", "in.vorn", "out.sco"});
    for (const char* name : {"run.log", "run.exp", "out.sco"}) folder.write(name, std::string(99999, 'x'));
    std::string long_name = "in.vorn";
    for (int at = 0; at < 2000; ++at) long_name.insert(0, "./");
    const RunResult result = run_in_process(folder, {"-l", "run.log", "-x", "run.exp", long_name, "out.sco"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.files.at("run.log"), result.err.substr(0, result.err.size() - 1));
    EXPECT_EQ(result.files.at("run.exp"), fresh.files.at("run.exp"));
    EXPECT_EQ(result.files.at("out.sco"), fresh.files.at("out.sco"));
}

TEST(Files, FilesAreEmptiedWhenALaterOneCannotBeOpened) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    folder.write("out.sco", "an older score");
    folder.write("run.exp", "an older text");
    EXPECT_EQ(run_in_process(folder, {"-l", "none/log", "-x", "run.exp", "in.vorn", "out.sco"}).status, 1);
    EXPECT_EQ(folder.read("out.sco"), "");
    EXPECT_EQ(folder.read("run.exp"), "");
}

TEST(Files, OutputsThatShareAFileAreEmptied) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    folder.write("out.sco", "an older score");
    const RunResult result = run_in_process(folder, {"-x", "./out.sco", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, CLASH);
    EXPECT_EQ(result.files.at("out.sco"), "");
}

// It may be written but not be made shorter.
TEST(Files, AnOutputThatCannotBeEmptiedStopsTheRun) {
    const int descriptor = memfd_create("old", MFD_ALLOW_SEALING);
    ASSERT_EQ(write(descriptor, "old", 3), 3);
    ASSERT_EQ(fcntl(descriptor, F_ADD_SEALS, F_SEAL_SHRINK), 0);
    const std::string name = "/proc/self/fd/" + std::to_string(descriptor);
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    const RunResult result = run_in_process(folder, {"in.vorn", name});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), "\nERROR: Can't write \"" + name + "\".\n\n");
    close(descriptor);
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
    EXPECT_EQ(vorn::MKLOG, 0);
}

TEST(Files, AnInputThatARunLeftOpenIsClosedByTheReset) {
    const WorkFolder folder;
    folder.write("in.vorn", SCORE);
    vorn::fin = std::fopen((folder.path() / "in.vorn").c_str(), "r");
    ASSERT_NE(vorn::fin, nullptr);
    const int descriptor = fileno(vorn::fin);
    vorn::reset_files();
    EXPECT_EQ(vorn::fin, nullptr);
    EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
}

}  // namespace
