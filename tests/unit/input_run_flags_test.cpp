#include "input/run_flags.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "support/terminal.h"

namespace {

using vorn::set_message_streams;

TEST(MessageStreams, OnlyATerminalIsOne) {
    const vorn::test::Terminal terminal;
    set_message_streams(stdout, terminal.stream());
    EXPECT_EQ(vorn::std_out, stdout);
    EXPECT_EQ(vorn::std_err, terminal.stream());
    EXPECT_EQ(vorn::ON_TERMINAL, 1);

    std::FILE* const file = std::tmpfile();
    set_message_streams(terminal.stream(), file);
    EXPECT_EQ(vorn::ON_TERMINAL, 0);
    std::fclose(file);
    vorn::reset_run_flags();
}

TEST(MessageStreams, AStreamInMemoryIsNoTerminal) {
    char memory[16];
    std::FILE* const stream = fmemopen(memory, sizeof memory, "w");
    set_message_streams(stdout, stream);
    EXPECT_EQ(vorn::ON_TERMINAL, 0);
    std::fclose(stream);
    vorn::reset_run_flags();
}

TEST(MessageStreams, AResetForgetsTheTerminal) {
    const vorn::test::Terminal terminal;
    set_message_streams(stdout, terminal.stream());
    vorn::reset_run_flags();
    EXPECT_EQ(vorn::std_err, stderr);
    EXPECT_EQ(vorn::ON_TERMINAL, 0);
}

}  // namespace
