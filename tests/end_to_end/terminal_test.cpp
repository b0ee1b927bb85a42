#include "support/terminal.h"

#include <gtest/gtest.h>

#include <string>

#include "support/run_case.h"
#include "support/running_program.h"

// Names and scores that hold control characters: read on a terminal, kept as
// they are everywhere else.

namespace vorn::test {
namespace {

const std::string CLEAR = "\x1B[2J";
const std::string INPUT = "in" + CLEAR + "ü.vorn";
const Arguments ARGUMENTS = {"-l", "run\x9B.log", "-x", "run\x07.exp", INPUT, "out\xC2\x9B.sco"};

// The banner and what follows it, from the first name on.
std::string behind_build(const std::string& text) { return text.substr(text.find("Input\t=")); }

class OnTerminal : public testing::Test {
protected:
    // Returns what the terminal is shown.
    std::string run(const std::string& score, int status) {
        folder_.write(INPUT, score);
        Terminal terminal;
        const RunResult result =
            RunningProgram(folder_, ARGUMENTS, {.standard_error = terminal.name()}).wait();
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.err, "");
        return behind_build(terminal.take());
    }

    // The same run with standard error in a file.
    std::string run_into_file() { return behind_build(RunningProgram(folder_, ARGUMENTS).wait().err); }

    WorkFolder folder_;
};

const std::string BYTES = "Input\t= \"" + INPUT + "\"\nOutput\t= \"out\xC2\x9B.sco\" [Csound score-file]\n" +
                          "Log \t= \"run\x9B.log\"\nMExp\t= \"run\x07.exp\"\n";
const std::string SHOWN =
    "Input\t= \"in\\x1B[2Jü.vorn\"\nOutput\t= \"out\\xC2\\x9B.sco\" [Csound score-file]\n"
    "Log \t= \"run\\x9B.log\"\nMExp\t= \"run\\x07.exp\"\n";

// The caret stands under the question mark, three columns further for the byte that takes four.
TEST_F(OnTerminal, NamesAndLinesAreEscaped) {
    const std::string error = "\n\nERROR: Line 1:Invalid G-block command or character.\n";
    const std::string bytes = BYTES + error + "/* " + CLEAR + " */ ?\n           ^\n";
    EXPECT_EQ(run("/* " + CLEAR + " */ ?", 1), SHOWN + error + "/* \\x1B[2J */ ?\n              ^\n");
    EXPECT_EQ(behind_build(folder_.read("run\x9B.log")), bytes);
    EXPECT_EQ(run_into_file(), bytes);
}

TEST_F(OnTerminal, NamesOfIncludesAreEscaped) {
    const std::string score = "#include |none" + CLEAR + "|";
    const std::string bytes = "\nBad include file name: \"none" + CLEAR + "\"\n\n";
    EXPECT_EQ(run(score, 1), SHOWN + "\nBad include file name: \"none\\x1B[2J\"\n\n");
    EXPECT_EQ(behind_build(folder_.read("run\x9B.log")), BYTES + bytes);
    EXPECT_EQ(run_into_file(), BYTES + bytes);
}

TEST_F(OnTerminal, OrdinaryMessagesAreThoseOfAFile) {
    const std::string shown = run("i1 = 3 0 1 {\np2 1\np3 1\n}\n", 0);
    EXPECT_EQ(shown.substr(0, SHOWN.size()), SHOWN);
    EXPECT_EQ(BYTES + shown.substr(SHOWN.size()), run_into_file());
}

}  // namespace
}  // namespace vorn::test
