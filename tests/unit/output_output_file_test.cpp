#include "output/output_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

using vorn::OUTPUT_BUFFER_SIZE;
using vorn::OutputFile;

std::string contents(std::FILE* stream) {
    std::rewind(stream);
    std::string text;
    char part[4096];
    for (std::size_t size; (size = std::fread(part, 1, sizeof part, stream)) > 0;) text.append(part, size);
    return text;
}

struct OutputFileTest : testing::Test {
    OutputFile file;
    std::FILE* stream = std::tmpfile();
    OutputFileTest() { EXPECT_TRUE(vorn::open_output(file, stream)); }
    ~OutputFileTest() override { vorn::close_output(file); }

    std::string written() {
        EXPECT_TRUE(vorn::flush_output(file));
        return contents(stream);
    }
};

// A file on a device that is always full.
struct FullDevice : testing::Test {
    OutputFile file;
    std::FILE* stream = std::fopen("/dev/full", "w");
    void SetUp() override {
        if (stream == nullptr) GTEST_SKIP() << "no full device here";
        ASSERT_TRUE(vorn::open_output(file, stream));
    }
    ~FullDevice() override { vorn::close_output(file); }
};

}  // namespace

TEST_F(OutputFileTest, WritesTextBytesAndCharactersInOrder) {
    vorn::output_text(file, "\n;I-block");
    vorn::output_char(file, ' ');
    vorn::output_bytes(file, "a\0b", 3);
    EXPECT_EQ(written(), std::string("\n;I-block a\0b", 13));
}

TEST_F(OutputFileTest, WritesNothingBeforeItIsFlushed) {
    vorn::output_text(file, "e");
    EXPECT_EQ(contents(stream), "");
    EXPECT_EQ(written(), "e");
}

TEST_F(OutputFileTest, FlushingTwiceWritesOnce) {
    vorn::output_text(file, "once");
    vorn::flush_output(file);
    EXPECT_EQ(written(), "once");
}

TEST_F(OutputFileTest, TakesMoreThanItsBufferHolds) {
    std::string text(2 * OUTPUT_BUFFER_SIZE + 12345, 'x');
    for (std::size_t i = 0; i < text.size(); i += 1000) text[i] = static_cast<char>('0' + i / 1000 % 10);
    vorn::output_text(file, "head");
    vorn::output_bytes(file, text.data(), text.size());
    EXPECT_EQ(written(), "head" + text);
}

TEST_F(OutputFileTest, SpaceIsWhereTheLastBytesEnded) {
    std::memcpy(vorn::output_space(file, 64), "abcdef", 6);
    vorn::output_advance(file, 3);
    std::memcpy(vorn::output_space(file, 64), "xyz", 3);
    vorn::output_advance(file, 3);
    EXPECT_EQ(written(), "abcxyz");
}

TEST_F(OutputFileTest, SpaceIsFoundAtTheEndOfTheBuffer) {
    constexpr std::size_t SIZE = std::size_t{1} << 16;
    std::string expected;
    for (int i = 0; i < 50; ++i) {
        std::memset(vorn::output_space(file, SIZE), 'a' + i % 26, SIZE);
        vorn::output_advance(file, SIZE - 7);
        expected.append(SIZE - 7, static_cast<char>('a' + i % 26));
        ASSERT_LE(file.used, OUTPUT_BUFFER_SIZE);
    }
    EXPECT_EQ(written(), expected);
}

TEST_F(OutputFileTest, CharactersFillTheBufferToItsLastByte) {
    for (std::size_t i = 0; i < OUTPUT_BUFFER_SIZE + 1; ++i) vorn::output_char(file, 'c');
    EXPECT_EQ(file.used, 1U);
    EXPECT_EQ(written().size(), OUTPUT_BUFFER_SIZE + 1);
}

TEST_F(OutputFileTest, ClosingReleasesEverything) {
    vorn::output_text(file, "e");
    EXPECT_TRUE(vorn::close_output(file));
    EXPECT_EQ(file.stream, nullptr);
    EXPECT_EQ(file.data, nullptr);
    EXPECT_TRUE(vorn::close_output(file));
}

TEST_F(FullDevice, FlushingTellsOfAFailedWrite) {
    vorn::output_text(file, "e");
    EXPECT_FALSE(vorn::flush_output(file));
    EXPECT_TRUE(file.failed);
}

TEST_F(FullDevice, FailureIsRememberedWhileWritingGoesOn) {
    const std::string text(3 * OUTPUT_BUFFER_SIZE, 'x');
    vorn::output_bytes(file, text.data(), text.size());
    EXPECT_TRUE(file.failed);
    vorn::output_char(file, 'x');
    EXPECT_FALSE(vorn::flush_output(file));
    EXPECT_FALSE(vorn::flush_output(file));
}

TEST_F(FullDevice, ClosingTellsOfAFailedWrite) {
    vorn::output_text(file, "e");
    EXPECT_FALSE(vorn::close_output(file));
    EXPECT_FALSE(vorn::close_output(file));
}

TEST(OpenOutput, ForgetsAnEarlierFailure) {
    OutputFile file;
    file.failed = true;
    ASSERT_TRUE(vorn::open_output(file, std::tmpfile()));
    EXPECT_FALSE(file.failed);
    EXPECT_TRUE(vorn::close_output(file));
}

TEST(ResetOutputFile, ClosesWhatIsOpen) {
    ASSERT_TRUE(vorn::open_output(vorn::fout, std::tmpfile()));
    vorn::reset_output_file();
    EXPECT_EQ(vorn::fout.stream, nullptr);
    EXPECT_EQ(vorn::fout.data, nullptr);
    EXPECT_FALSE(vorn::fout.failed);
}
