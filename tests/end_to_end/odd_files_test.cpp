#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "support/run_case.h"
#include "support/running_program.h"

// Files that cannot be read, written or told apart, and runs that are
// interrupted: each has a clear outcome, and no temporary file stays behind.

namespace vorn::test {
namespace {

namespace fs = std::filesystem;

const std::string SCORE = "i1 = 3 0 1 {\np2 1\np3 1\n}\n";
const std::string OUTPUT = "\n;I-block #1 (i1):\ni1    0.000  1.000 \n\ne\n";
const std::string BLOCK =
    "\n\n1 events generated in block #1 (i1).\n"
    "Total i-block duration:    1.00 (secs),    0.00 (beats)\n"
    "Cumulative i-block duration:    1.00 (secs)\n";
const std::string SUMMARY = "\n\nGlobal cumulative duration of all i-blocks =    1.00 (secs)\n";
const std::string CLASH = "\nERROR: You can't use a filename multiple times!\n\n";

std::string cannot_open(const std::string& name) { return "\nERROR: Can't open \"" + name + "\".\n\n"; }
std::string cannot_write(const std::string& name) { return "\nERROR: Can't write \"" + name + "\".\n\n"; }

class OddFiles : public testing::Test {
protected:
    OddFiles() { folder_.write("in.vorn", SCORE); }

    // Runs, and looks that no temporary file stays behind.
    RunResult run(const Arguments& arguments, Limits limits = {}) {
        TemporaryFileWatch watch;
        RunResult result = RunningProgram(folder_, arguments, limits).wait();
        EXPECT_EQ(watch.left_behind(), "");
        return result;
    }

    void expect_failure(const Arguments& arguments, const std::string& message, Limits limits = {}) {
        const RunResult result = run(arguments, limits);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(behind_banner(without_chance(result.err)), message);
        EXPECT_EQ(result.out, "");
    }

    WorkFolder folder_;
};

// --- input ---

TEST_F(OddFiles, FolderAsInput) {
    fs::create_directory(folder_.path() / "folder.vorn");
    expect_failure({"folder.vorn", "out.sco"}, cannot_open("folder.vorn"));
    EXPECT_FALSE(fs::exists(folder_.path() / "out.sco"));
}

TEST_F(OddFiles, InputBehindAMissingFolderOrAFile) {
    expect_failure({"none/in.vorn", "out.sco"}, cannot_open("none/in.vorn"));
    expect_failure({"in.vorn/in.vorn", "out.sco"}, cannot_open("in.vorn/in.vorn"));
    EXPECT_FALSE(fs::exists(folder_.path() / "out.sco"));
}

TEST_F(OddFiles, UnreadableInput) {
    if (geteuid() == 0) GTEST_SKIP() << "this user may read everything";
    fs::permissions(folder_.path() / "in.vorn", fs::perms::none);
    expect_failure({"in.vorn", "out.sco"}, cannot_open("in.vorn"));
    fs::permissions(folder_.path() / "in.vorn", fs::perms::owner_all);
}

// It opens, but its first page cannot be read.
TEST_F(OddFiles, InputThatFailsWhileItIsRead) {
    expect_failure({"-l", "run.log", "/proc/self/mem", "out.sco"}, cannot_open("/proc/self/mem"));
    EXPECT_EQ(behind_banner(folder_.read("run.log")), cannot_open("/proc/self/mem"));
}

TEST_F(OddFiles, InputMayBeAPipe) {
    make_pipe(folder_, "pipe");
    RunningProgram program(folder_, {"pipe", "out.sco"});
    PipeEnd input(folder_, "pipe");
    input.write(SCORE);
    input.close();
    const RunResult result = program.wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.files.at("out.sco"), OUTPUT);
}

// --- one file under two names ---

TEST_F(OddFiles, LinksToTheInputAreNotOverwritten) {
    fs::create_symlink("in.vorn", folder_.path() / "symbolic");
    fs::create_hard_link(folder_.path() / "in.vorn", folder_.path() / "hard");
    for (const char* name : {"./in.vorn", "symbolic", "hard"}) {
        SCOPED_TRACE(name);
        expect_failure({"in.vorn", name}, CLASH);
        expect_failure({"-l", name, "in.vorn", "out.sco"}, CLASH);
        expect_failure({"-x", name, "in.vorn", "out.sco"}, CLASH);
        expect_failure({name, "in.vorn"}, CLASH);
        EXPECT_EQ(folder_.read("in.vorn"), SCORE);
    }
    EXPECT_FALSE(fs::exists(folder_.path() / "out.sco"));
}

// Descriptor 3 is the input.
TEST_F(OddFiles, InputIsNotOverwrittenByItsDescriptor) {
    for (const char* option : {"-l", "-x"}) {
        expect_failure({option, "/proc/self/fd/3", "in.vorn", "out.sco"}, CLASH);
        EXPECT_EQ(folder_.read("in.vorn"), SCORE);
    }
    expect_failure({"in.vorn", "/proc/self/fd/3"}, CLASH);
    EXPECT_EQ(folder_.read("in.vorn"), SCORE);
}

TEST_F(OddFiles, OutputsMayNotShareAFile) {
    folder_.write("out.sco", "");
    fs::create_symlink("out.sco", folder_.path() / "symbolic");
    fs::create_hard_link(folder_.path() / "out.sco", folder_.path() / "hard");
    for (const char* name : {"./out.sco", "symbolic", "hard"}) {
        SCOPED_TRACE(name);
        expect_failure({"-l", name, "in.vorn", "out.sco"}, CLASH);
        expect_failure({"-x", name, "in.vorn", "out.sco"}, CLASH);
        expect_failure({"-l", name, "-x", "out.sco", "in.vorn", "other.sco"}, CLASH);
    }
}

// Descriptor 5 is the temporary file, behind the standard streams, the input and the output.
TEST_F(OddFiles, TemporaryFileMayNotBeIncluded) {
    folder_.write("in.vorn", SCORE + "#include |/proc/self/fd/5|\n");
    expect_failure({"in.vorn", "out.sco"}, CLASH, {.file_size = 1 << 20});
    EXPECT_EQ(folder_.read("out.sco"), "");
}

TEST_F(OddFiles, TemporaryFileMayNotBeIncludedByItsName) {
    make_pipe(folder_, "pipe");
    RunningProgram program(folder_, {"pipe", "out.sco"}, {.file_size = 1 << 20});
    PipeEnd input(folder_, "pipe");
    input.write(SCORE + "#include |" + program.temporary_file().string() + "|");
    input.close();
    const RunResult result = program.wait();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), CLASH);
}

// Descriptor 3 is the input.
TEST_F(OddFiles, InputMayNotIncludeItselfByWhateverName) {
    fs::create_symlink("in.vorn", folder_.path() / "symbolic");
    fs::create_hard_link(folder_.path() / "in.vorn", folder_.path() / "hard");
    for (const char* name : {"in.vorn", "./in.vorn", "symbolic", "hard", "/proc/self/fd/3"}) {
        SCOPED_TRACE(name);
        folder_.write("in.vorn", SCORE + "#include |" + name + "|\n");
        expect_failure({"in.vorn", "out.sco"}, CLASH);
        EXPECT_EQ(folder_.read("out.sco"), "");
    }
}

TEST_F(OddFiles, AFileMayBeIncludedTwiceButNotWhileItIsRead) {
    const std::string opening = "\n\tOpening include file \"a.inc\"...";
    folder_.write("in.vorn", "#include |a.inc|\n#include |a.inc|\n" + SCORE);
    folder_.write("a.inc", "; a comment\n");
    EXPECT_EQ(run({"in.vorn", "out.sco"}).status, 0);
    fs::create_hard_link(folder_.path() / "a.inc", folder_.path() / "b.inc");
    folder_.write("a.inc", "#include |b.inc|\n");
    expect_failure({"in.vorn", "out.sco"}, opening + CLASH);
    folder_.write("a.inc", "#include |in.vorn|\n");
    expect_failure({"in.vorn", "out.sco"}, opening + CLASH);
}

// To open the pipe once more would wait for a writer that never comes.
TEST_F(OddFiles, AnInputThatIsAPipeMayNotIncludeItself) {
    make_pipe(folder_, "pipe");
    RunningProgram program(folder_, {"pipe", "out.sco"});
    PipeEnd input(folder_, "pipe");
    input.write(SCORE + "#include |pipe|\n");
    input.close();
    const RunResult result = program.wait();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), CLASH);
}

// Reading it would wait for what the run itself is to write.
TEST_F(OddFiles, APipeThatTheRunWritesMayNotBeIncluded) {
    make_pipe(folder_, "pipe");
    const int reader = open((folder_.path() / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
    folder_.write("in.vorn", "#include |pipe|\n" + SCORE);
    expect_failure({"in.vorn", "pipe"}, CLASH);
    expect_failure({"-m", "in.vorn", "pipe"}, CLASH);
    expect_failure({"-x", "pipe", "in.vorn", "out.sco"}, CLASH);
    expect_failure({"-l", "pipe", "in.vorn", "out.sco"}, CLASH);
    const std::string pipe = folder_.path() / "pipe";
    EXPECT_EQ(run({"in.vorn", "out.sco"}, {.standard_error = pipe}).status, 1);
    folder_.write("in.vorn", SCORE);
    EXPECT_EQ(run({"pipe", "out.sco"}, {.standard_error = pipe}).status, 1);
    close(reader);
}

// Opening it for reading would wait for the run itself.
TEST_F(OddFiles, APipeMayNotBeInputAndOutput) {
    make_pipe(folder_, "pipe");
    expect_failure({"pipe", "./pipe"}, CLASH);
    expect_failure({"-l", "./pipe", "pipe", "out.sco"}, CLASH);
    expect_failure({"-x", "./pipe", "pipe", "out.sco"}, CLASH);
}

TEST_F(OddFiles, WhatAStandardStreamWritesMayNotBeRead) {
    for (const char* name : {"/dev/stdout", "/proc/self/fd/2"}) {
        SCOPED_TRACE(name);
        folder_.write("in.vorn", std::string("#include |") + name + "|\n" + SCORE);
        expect_failure({"in.vorn", "out.sco"}, CLASH);
        const RunResult result = run({name, "out.sco"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, CLASH);
    }
}

// A device does not give back what is written to it.
TEST_F(OddFiles, ADeviceOfAStandardStreamMayBeRead) {
    folder_.write("in.vorn", "#include |/dev/null|\n" + SCORE);
    const RunResult result = run({"in.vorn", "out.sco"}, {.standard_error = "/dev/null"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.files.at("out.sco"), OUTPUT);
    EXPECT_EQ(run({"/dev/null", "out.sco"}, {.standard_error = "/dev/null"}).status, 0);
}

TEST_F(OddFiles, TemporaryFileMayNotBeTheLog) {
    expect_failure({"-l", "/proc/self/fd/5", "in.vorn", "out.sco"}, CLASH);
}

TEST_F(OddFiles, OutputMayBeADevice) {
    const RunResult result = run({"-l", "/dev/null", "in.vorn", "/dev/stdout"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, OUTPUT);
}

// What the screen's file holds already is not cut off behind the banner.
TEST_F(OddFiles, LogMayBeTheFileOfStandardError) {
    const RunResult result = run({"-l", "/dev/stderr", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.err.starts_with("\nVorn (")) << result.err;
    EXPECT_EQ(behind_banner(result.err), BLOCK + SUMMARY + "\n");
}

TEST_F(OddFiles, OutputMayBeAPipe) {
    make_pipe(folder_, "pipe");
    const int reader = open((folder_.path() / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
    const RunResult result = run({"in.vorn", "pipe"});
    char bytes[100] = {};
    EXPECT_EQ(read(reader, bytes, sizeof bytes), static_cast<ssize_t>(OUTPUT.size()));
    EXPECT_EQ(bytes, OUTPUT);
    EXPECT_EQ(result.status, 0);
    close(reader);
}

// The score must not take the place of standard error.
TEST_F(OddFiles, ClosedStandardStreams) {
    const RunResult result = run({"in.vorn", "out.sco"}, {.standard_streams = false});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.files.at("out.sco"), OUTPUT);
}

// --- outputs that cannot be opened ---

TEST_F(OddFiles, FoldersAsOutputs) {
    fs::create_directory(folder_.path() / "folder");
    expect_failure({"folder", "./folder"}, cannot_open("folder"));
    expect_failure({"in.vorn", "folder"}, cannot_open("folder"));
    expect_failure({"-l", "folder", "in.vorn", "out.sco"}, cannot_open("folder"));
    expect_failure({"-x", "folder", "in.vorn", "out.sco"}, cannot_open("folder"));
}

TEST_F(OddFiles, LogInAMissingFolderRemovesTheTemporaryFile) {
    TemporaryFileWatch watch;
    expect_failure({"-l", "none/run.log", "in.vorn", "out.sco"}, cannot_open("none/run.log"));
    EXPECT_TRUE(watch.saw_one());
    EXPECT_EQ(watch.left_behind(), "");
}

// Descriptors 0 to 4 are the standard streams, the input and the output.
TEST_F(OddFiles, TemporaryFileThatCannotBeOpened) {
    expect_failure({"in.vorn", "out.sco"}, "\nERROR: Can't open temporary file\n\n", {.open_files = 5});
    expect_failure({"-x", "run.exp", "in.vorn", "out.sco"}, "\nERROR: Can't open temporary file\n\n",
                   {.open_files = 6});
    expect_failure({"-x", "run.exp", "in.vorn", "out.sco"}, cannot_open("run.exp"), {.open_files = 5});
    expect_failure({"-l", "run.log", "in.vorn", "out.sco"}, cannot_open("run.log"), {.open_files = 6});
}

TEST_F(OddFiles, TemporaryFileThatCannotBeReopened) {
    make_pipe(folder_, "pipe");
    RunningProgram program(folder_, {"-l", "run.log", "pipe", "out.sco"});
    PipeEnd input(folder_, "pipe");
    const fs::path temporary = program.temporary_file();
    input.write(SCORE);
    EXPECT_TRUE(fs::remove(temporary));
    input.close();
    const RunResult result = program.wait();
    const std::string message = "\nERROR: Ouch! Can't open the temporary file (huh?).\n\n";
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), message);
    EXPECT_EQ(behind_banner(result.files.at("run.log")), message);
    EXPECT_EQ(result.files.at("out.sco"), "");
}

// --- outputs that cannot be written in full ---

TEST_F(OddFiles, OutputOnAFullDevice) {
    expect_failure({"in.vorn", "/dev/full"}, BLOCK + SUMMARY + cannot_write("/dev/full"));
    folder_.write("empty.vorn", "");
    expect_failure({"empty.vorn", "/dev/full"},
                   "\n\n\t(N.B. No I-Block Data Written)"
                   "\n\nGlobal cumulative duration of all i-blocks =    0.00 (secs)\n" +
                       cannot_write("/dev/full"));
}

TEST_F(OddFiles, OutputOnAFullDeviceAfterAnError) {
    folder_.write("in.vorn", SCORE + "oops\n");
    expect_failure({"in.vorn", "/dev/full"},
                   BLOCK + "\n\nERROR: Line 5:Invalid G-block command or character.\noops \n^\n" +
                       cannot_write("/dev/full"));
}

TEST_F(OddFiles, MidiFileOnAFullDevice) {
    folder_.write("in.vorn", "i1 = 5 0 1 {\np2 1\np3 1\np4 16000\np5 60\n}\n");
    expect_failure({"-m", "in.vorn", "/dev/full"},
                   "\n   0.00\t   1.00\tON\tN:   60.00\tV:   62.01\t"
                   "\n   1.00\t   1.00\tOFF\tN:   60.00\tV:   60.00\t"
                   "\n\n2 events generated in block #1 (i1).\n"
                   "Total i-block duration:    2.00 (secs),    0.00 (beats)\n"
                   "Cumulative i-block duration:    2.00 (secs)\n" +
                       cannot_write("/dev/full"));
}

TEST_F(OddFiles, LogOnAFullDevice) {
    expect_failure({"-l", "/dev/full", "in.vorn", "out.sco"}, BLOCK + SUMMARY + cannot_write("/dev/full"));
    EXPECT_EQ(folder_.read("out.sco"), OUTPUT);
}

TEST_F(OddFiles, ExpansionFileOnAFullDevice) {
    expect_failure({"-x", "/dev/full", "in.vorn", "out.sco"}, BLOCK + SUMMARY + cannot_write("/dev/full"));
    EXPECT_EQ(folder_.read("out.sco"), OUTPUT);
}

// The log is closed behind the others, so that it tells why the run has failed.
TEST_F(OddFiles, LogTellsWhatCannotBeWritten) {
    expect_failure({"-l", "run.log", "in.vorn", "/dev/full"}, BLOCK + SUMMARY + cannot_write("/dev/full"));
    EXPECT_EQ(behind_banner(folder_.read("run.log")), BLOCK + SUMMARY + cannot_write("/dev/full"));
    expect_failure({"-l", "run.log", "-x", "/dev/full", "in.vorn", "out.sco"},
                   BLOCK + SUMMARY + cannot_write("/dev/full"));
    EXPECT_EQ(behind_banner(folder_.read("run.log")), BLOCK + SUMMARY + cannot_write("/dev/full"));
}

// About 1.3 megabytes: the disk is full long before the run ends.
TEST_F(OddFiles, LongOutputOnAFullDisk) {
    folder_.write("in.vorn", "i1 = 3 0 -60000 {\np2 1\np3 1\n}\n");
    expect_failure({"in.vorn", "out.sco"},
                   "\n\n60000 events generated in block #1 (i1).\n"
                   "Total i-block duration: 60000.00 (secs), 59999.00 (beats)\n"
                   "Cumulative i-block duration: 60000.00 (secs)\n"
                   "\n\nGlobal cumulative duration of all i-blocks = 60000.00 (secs)\n" +
                       cannot_write("out.sco"),
                   {.file_size = 4096});
    EXPECT_EQ(folder_.read("out.sco").size(), 4096U);
}

TEST_F(OddFiles, TemporaryFileOnAFullDisk) {
    folder_.write("in.vorn", ";" + std::string(10000, 'x') + "\n" + SCORE);
    expect_failure({"-l", "run.log", "in.vorn", "out.sco"}, cannot_write("/tmp/vornXXXXXX"),
                   {.file_size = 4096});
    EXPECT_EQ(behind_banner(without_chance(folder_.read("run.log"))), cannot_write("/tmp/vornXXXXXX"));
}

// Nothing else would end such a run.
TEST_F(OddFiles, EndlessInputOnAFullDisk) {
    const std::string message = cannot_write("/tmp/vornXXXXXX");
    expect_failure({"/dev/zero", "out.sco"}, message, {.file_size = 4096});
    folder_.write("in.vorn", "#include |/dev/zero|\n");
    expect_failure({"in.vorn", "out.sco"}, "\n\tOpening include file \"/dev/zero\"..." + message,
                   {.file_size = 4096});
}

// --- too little memory ---

// From too little for the program to be loaded to enough for a run: wherever
// memory ends, a message says so. Names are longer than what a string holds in itself.
TEST_F(OddFiles, AnyAmountOfMemoryHasAClearOutcome) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer alone needs more memory than any limit allows";
#endif
    const std::string name = "a_score_with_a_rather_long_name.vorn";
    folder_.write(name, "#define LENGTH(a) #$a#\n#const ONE 1\ni1 = 3 0 1 {\np2 $LENGTH(1)\np3 ~ONE\n}\n");
    constexpr unsigned long KIB = 1024;
    constexpr int NOT_LOADED = 127;
    bool any_failed = false;
    int status = -1;
    for (unsigned long memory = 4000 * KIB; status != 0 && memory < 64000 * KIB; memory += 16 * KIB) {
        SCOPED_TRACE(memory / KIB);
        const RunResult result = run({name, "a_score_with_a_rather_long_name.sco"}, {.memory = memory});
        status = result.status;
        if (status == 0 || status == NOT_LOADED) continue;
        any_failed = true;
        ASSERT_EQ(status, 1);
        EXPECT_NE(result.err.find("\nERROR: "), std::string::npos) << result.err;
    }
    EXPECT_TRUE(any_failed);
    EXPECT_EQ(status, 0);
}

// --- the temporary file ---

TEST_F(OddFiles, TemporaryFileIsGoneAfterEveryExit) {
    folder_.write("error.vorn", SCORE + "oops\n");
    folder_.write("include.vorn", "#include |none.inc|\n");
    folder_.write("open.vorn", "#if(1)\n");
    TemporaryFileWatch watch;
    EXPECT_EQ(run({"in.vorn", "out.sco"}).status, 0);
    EXPECT_TRUE(watch.saw_one());
    EXPECT_EQ(run({"-m", "in.vorn", "out.sco"}).status, 0);
    EXPECT_EQ(run({"error.vorn", "out.sco"}).status, 1);
    EXPECT_EQ(run({"include.vorn", "out.sco"}).status, 1);
    EXPECT_EQ(run({"open.vorn", "out.sco"}).status, 1);
    EXPECT_EQ(watch.left_behind(), "");
}

TEST_F(OddFiles, InterruptsRemoveTheTemporaryFile) {
    make_pipe(folder_, "pipe");
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGALRM, SIGXCPU, SIGUSR1, SIGUSR2,
                             SIGVTALRM, SIGPROF, SIGIO, SIGPWR, SIGSTKFLT, SIGRTMIN, SIGRTMAX}) {
        SCOPED_TRACE(number);
        RunningProgram program(folder_, {"pipe", "out.sco"});
        const PipeEnd input(folder_, "pipe");
        const fs::path temporary = program.temporary_file();
        EXPECT_TRUE(fs::exists(temporary));
        input.write(SCORE);
        program.send_signal(number);
        EXPECT_EQ(program.wait().status, -number);
        EXPECT_FALSE(fs::exists(temporary));
    }
}

TEST_F(OddFiles, TemporaryFileIsMadeInTheFolderOfTheEnvironment) {
    fs::create_directory(folder_.path() / "folder");
    make_pipe(folder_, "pipe");
    RunningProgram program(folder_, {"pipe", "out.sco"}, {.tmpdir = "folder"});
    PipeEnd input(folder_, "pipe");
    EXPECT_EQ(program.temporary_file().parent_path(), fs::canonical(folder_.path() / "folder"));
    input.write(SCORE);
    input.close();
    const RunResult result = program.wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.files.at("out.sco"), OUTPUT);
    EXPECT_TRUE(fs::is_empty(folder_.path() / "folder"));
}

TEST_F(OddFiles, AnEmptyNameOfTheTemporaryFolderIsTheSystems) {
    TemporaryFileWatch watch;
    EXPECT_EQ(run({"in.vorn", "out.sco"}, {.tmpdir = ""}).status, 0);
    EXPECT_TRUE(watch.saw_one());
}

TEST_F(OddFiles, AMissingTemporaryFolderIsToldOf) {
    expect_failure({"in.vorn", "out.sco"}, "\nERROR: Can't open temporary file\n\n", {.tmpdir = "none"});
}

// The name of the file has 1023 characters at most.
TEST_F(OddFiles, TemporaryFolderOfTheLongestName) {
    std::string name = (folder_.path() / "").string();
    name.insert(name.size(), 1012 - name.size(), '/');
    EXPECT_EQ(run({"in.vorn", "out.sco"}, {.tmpdir = name.c_str()}).status, 0);
    name += '/';
    expect_failure({"in.vorn", "out.sco"},
                   "\nERROR: The name of the temporary folder (TMPDIR) is too long.\n\n",
                   {.tmpdir = name.c_str()});
}

// Only its owner may read a score that is being worked on.
TEST_F(OddFiles, TemporaryFileIsPrivate) {
    make_pipe(folder_, "pipe");
    RunningProgram program(folder_, {"pipe", "out.sco"});
    PipeEnd input(folder_, "pipe");
    const fs::path temporary = program.temporary_file();
    EXPECT_EQ(fs::status(temporary).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    input.close();
    EXPECT_EQ(program.wait().status, 0);
    EXPECT_FALSE(fs::exists(temporary));
}

}  // namespace
}  // namespace vorn::test
