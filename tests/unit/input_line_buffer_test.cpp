#include "input/line_buffer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <string>

#include "input/errors.h"
#include "support/message_capture.h"
#include "support/score_text.h"

namespace {

using vorn::END_OF_INPUT;
using vorn::get_buff;
using vorn::get_c;
using vorn::LINE_SIZE;
using vorn::test::MessageCapture;
using vorn::test::ScoreText;

std::string next_line(ScoreText& score) {
    EXPECT_EQ(get_buff(score.reader), 0);
    EXPECT_EQ(score.reader.pos, 0);
    return score.reader.text;
}

TEST(GetBuff, CountsLinesFromOne) {
    ScoreText score("a\n\nb\n");
    EXPECT_EQ(score.reader.line, 0U);
    EXPECT_EQ(next_line(score), "a ");
    EXPECT_EQ(score.reader.line, 1U);
    EXPECT_EQ(next_line(score), " ");
    EXPECT_EQ(next_line(score), "b ");
    EXPECT_EQ(score.reader.line, 3U);
}

TEST(GetBuff, LineEndsBecomeBlanks) {
    ScoreText score("a\r\nb\rc\n\td");
    EXPECT_EQ(next_line(score), "a  ");
    EXPECT_EQ(next_line(score), "b c ");
    EXPECT_EQ(next_line(score), "\td");
}

TEST(GetBuff, Byte255BecomesABlank) {
    ScoreText score("a\xff\xffz\n");
    EXPECT_EQ(next_line(score), "a  z ");
}

TEST(GetBuff, OtherBytesAbove127Stay) {
    ScoreText score("\x80\xc3\xa9\xfe\n");
    EXPECT_EQ(next_line(score), "\x80\xc3\xa9\xfe ");
}

// Behind a NUL byte the rest of its line would vanish unseen.
TEST(GetBuff, NulByteDoesNotCutTheLine) {
    ScoreText score(std::string("a\0b\nc\n", 6));
    EXPECT_EQ(next_line(score),
              "a\x1a"
              "b ");
    EXPECT_EQ(next_line(score), "c ");
    EXPECT_EQ(score.reader.line, 2U);
}

TEST(GetBuff, EndOfInputLeavesTheLineAsItWas) {
    ScoreText score("abc\n");
    next_line(score);
    score.reader.pos = 2;
    EXPECT_EQ(get_buff(score.reader), END_OF_INPUT);
    EXPECT_EQ(get_buff(score.reader), END_OF_INPUT);
    EXPECT_EQ(score.rest(), "c ");
    EXPECT_EQ(score.reader.line, 1U);
}

TEST(GetBuff, LongLinesComeInPiecesEachCounted) {
    const std::string piece(LINE_SIZE - 1, 'x');
    ScoreText score(piece + piece + "yz\nnext\n");
    EXPECT_EQ(next_line(score), piece);
    EXPECT_EQ(next_line(score), piece);
    EXPECT_EQ(next_line(score), "yz ");
    EXPECT_EQ(score.reader.line, 3U);
    EXPECT_EQ(next_line(score), "next ");
}

// The line feed counts: 4094 characters and their line end fill the buffer.
TEST(GetBuff, TheLineFeedOfAFullLineIsAPieceOfItsOwn) {
    const std::string full(LINE_SIZE - 2, 'x');
    ScoreText score(full + "\n" + full + "x\nnext\n");
    EXPECT_EQ(next_line(score), full + " ");
    EXPECT_EQ(next_line(score), full + "x");
    EXPECT_EQ(next_line(score), " ");
    EXPECT_EQ(next_line(score), "next ");
}

TEST(GetBuff, AReadErrorIsNoEndOfInput) {
    ScoreText score("");
    std::FILE* const text = score.reader.stream;
    score.reader.stream = std::fopen("/dev/null", "w");
    ASSERT_NE(score.reader.stream, nullptr);
    EXPECT_EQ(get_buff(score.reader), vorn::error::PREMATURE_END);
    EXPECT_EQ(get_buff(score.reader), vorn::error::PREMATURE_END);
    std::fclose(score.reader.stream);
    score.reader.stream = text;
}

// Gives "p2 1", fails once, and would go on with "5".
ssize_t fail_in_the_middle(void* reads, char* bytes, std::size_t) {
    int& count = *static_cast<int*>(reads);
    if (++count == 2) {
        errno = EIO;
        return -1;
    }
    const std::string part = count == 1 ? "p2 1" : "5\n";
    part.copy(bytes, part.size());
    return static_cast<ssize_t>(part.size());
}

TEST(GetBuff, AReadErrorIsNoEndOfALine) {
    ScoreText score("");
    std::FILE* const text = score.reader.stream;
    int reads = 0;
    score.reader.stream = fopencookie(&reads, "r", {fail_in_the_middle, nullptr, nullptr, nullptr});
    EXPECT_EQ(get_buff(score.reader), vorn::error::PREMATURE_END);
    std::fclose(score.reader.stream);
    score.reader.stream = text;
}

TEST(GetBuff, SkippedLinesAreCounted) {
    ScoreText score("#if(0)\nx $NOBODY ~NOBODY\n#endif rest\nafter\n");
    EXPECT_EQ(get_buff(score.reader), 0);
    EXPECT_EQ(score.rest(), " rest ");
    EXPECT_EQ(score.reader.line, 3U);
    EXPECT_EQ(next_line(score), "after ");
}

TEST(GetBuff, SkippedLinesAreReturnedRaw) {
    ScoreText score("#if(0)\nx ~@\n#endif $NOBODY\n");
    EXPECT_EQ(get_buff(score.reader), 0);
    EXPECT_STREQ(score.reader.text, "#endif $NOBODY ");
    EXPECT_EQ(score.reader.pos, 6);
}

TEST(GetBuff, ConditionalLinesReturnBeforeExpansion) {
    ScoreText score("  #if(1) $NOBODY\n#endif $NOBODY\n");
    EXPECT_EQ(get_buff(score.reader), 0);
    EXPECT_EQ(score.rest(), " $NOBODY ");
    EXPECT_FALSE(vorn::ifdef_match());
    EXPECT_EQ(get_buff(score.reader), 0);
    EXPECT_EQ(score.rest(), " $NOBODY ");
    EXPECT_TRUE(vorn::ifdef_match());
}

TEST(GetBuff, ConditionalsAreActedOnInsideABlockComment) {
    ScoreText score("/* a\n#if(0)\nb\n#endif\n*/\n");
    EXPECT_EQ(next_line(score), "/* a ");
    EXPECT_EQ(get_buff(score.reader), 0);
    EXPECT_EQ(score.reader.line, 4U);
}

TEST(GetBuff, OnlyTheFirstVisibleCharacterOpensAConditional) {
    ScoreText score("x #if(0)\ny\n");
    EXPECT_EQ(next_line(score), "x #if(0) ");
    EXPECT_EQ(next_line(score), "y ");
    EXPECT_TRUE(vorn::ifdef_match());
}

TEST(GetBuff, AnEndifWithoutIfIsRefused) {
    ScoreText score("#endif\n");
    EXPECT_EQ(get_buff(score.reader), vorn::error::MISMATCHED_ENDIF);
}

TEST(GetBuff, AFailedExpansionIsPassedOn) {
    ScoreText score("a $NOBODY\n~NOBODY\n");
    MessageCapture messages;
    EXPECT_EQ(get_buff(score.reader), vorn::error::PRINTED_ECHO_LEFT);
    EXPECT_GT(get_buff(score.reader), 0);
}

// The expansion file of -x, caught in a stream of its own.
class Echo {
public:
    Echo() : stream_(std::tmpfile()) {
        vorn::MKEXP = 1;
        vorn::fecho = stream_;
    }
    ~Echo() { std::fclose(stream_); }
    Echo(const Echo&) = delete;
    Echo& operator=(const Echo&) = delete;

    std::string text() const {
        std::string caught(static_cast<std::size_t>(std::ftell(stream_)), '\0');
        std::rewind(stream_);
        caught.resize(std::fread(caught.data(), 1, caught.size(), stream_));
        return caught;
    }

private:
    std::FILE* stream_;
};

TEST(GetBuff, EchoAddsALineFeedBehindTheTrailingBlank) {
    ScoreText score("a\n\nb");
    Echo echo;
    while (get_buff(score.reader) == 0) {
    }
    EXPECT_EQ(echo.text(), "a \n \nb\n");
}

TEST(GetBuff, ConditionalAndSkippedLinesAreNotEchoed) {
    ScoreText score("a\n#if(0)\nb\n#endif\n#if(1)\nc\n#endif\nd\n");
    Echo echo;
    while (get_buff(score.reader) == 0) {
    }
    EXPECT_EQ(echo.text(), "a \nc \nd \n");
}

TEST(GetBuff, WithoutTheFlagNothingIsEchoed) {
    ScoreText score("a\n");
    Echo echo;
    vorn::MKEXP = 0;
    EXPECT_EQ(next_line(score), "a ");
    EXPECT_EQ(echo.text(), "");
}

TEST(GetC, StepsOverTheCharacter) {
    std::int32_t pos = 0;
    EXPECT_EQ(get_c("ab", pos), 'a');
    EXPECT_EQ(get_c("ab", pos), 'b');
    EXPECT_EQ(pos, 2);
}

TEST(GetC, StaysAtTheEndOfTheText) {
    std::int32_t pos = 2;
    EXPECT_EQ(get_c("ab", pos), '\0');
    EXPECT_EQ(pos, 2);
}

TEST(Peek, NeverLooksBehindTheEndOfTheText) {
    EXPECT_EQ(vorn::peek("ab", 0), 'b');
    EXPECT_EQ(vorn::peek("ab", 0, 0), 'a');
    EXPECT_EQ(vorn::peek("ab", 1), '\0');
    EXPECT_EQ(vorn::peek("ab", 0, 100), '\0');
    EXPECT_EQ(vorn::peek("", 0, 3), '\0');
}

}  // namespace
