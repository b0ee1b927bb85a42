#include "kit/command/process.h"

#include <gtest/gtest.h>

#include <csignal>

// Other programs: what goes in, what comes out, and what they end with.

namespace vorn::kit {
namespace {

TEST(Process, CopiesInputToOutputHoweverLarge) {
    std::string text;
    for (int line = 0; line < 300'000; ++line) text += std::to_string(line) + "\n";
    const ProcessResult result = run_process({"cat"}, text);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output == text);
    EXPECT_EQ(result.errors, "");
}

TEST(Process, TakesArgumentsAsTheyAre) {
    const std::string odd = "a b'\"$HOME;`ls`*\n\xC3\xA4";
    EXPECT_EQ(run_process({"printf", "%s", odd}).output, odd);
}

TEST(Process, KeepsErrorsApartAndTellsTheStatus) {
    const ProcessResult result = run_process({"sh", "-c", "echo one; echo two >&2; exit 7"});
    EXPECT_EQ(result.status, 7);
    EXPECT_EQ(result.output, "one\n");
    EXPECT_EQ(result.errors, "two\n");
    EXPECT_FALSE(result.is_missing);
}

TEST(Process, TellsTheSignalThatEndedIt) {
    EXPECT_EQ(run_process({"sh", "-c", "kill -KILL $$"}).status, 128 + SIGKILL);
}

TEST(Process, OutlivesAProgramThatDoesNotReadItsInput) {
    const std::string text(1'000'000, 'x');
    EXPECT_EQ(run_process({"true"}, text).status, 0);
    sigset_t pending;
    sigpending(&pending);
    EXPECT_EQ(sigismember(&pending, SIGPIPE), 0);
}

TEST(Process, SaysThatAProgramIsMissing) {
    const ProcessResult result = run_process({"no-such-program-of-ours"});
    EXPECT_TRUE(result.is_missing);
    EXPECT_NE(result.errors, "");
    EXPECT_EQ(how_to_install("rsvg-convert", "librsvg2-bin"),
              "rsvg-convert is needed for this and is not installed (Debian: apt install librsvg2-bin)");
}

}  // namespace
}  // namespace vorn::kit
