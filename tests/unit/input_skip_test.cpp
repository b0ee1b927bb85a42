#include "input/skip.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>

#include "input/errors.h"
#include "input/line_buffer.h"
#include "support/score_text.h"

// Each routine as a table: a score description of which no line is read yet,
// the result, what is then left of the current line, and the lines read.
// The line feed of every line has become a blank.

namespace {

using vorn::CommentKind;
using vorn::END_OF_INPUT;
using vorn::is_comment;
using vorn::Reader;
using vorn::skip_blanks;
using vorn::skip_comment;
using vorn::skip_lines;
using vorn::skip_stuff;
using vorn::skip_wc;
using vorn::skip_white;
using vorn::test::ScoreText;

struct Row {
    const char* text;
    int result;
    const char* rest;
    std::uint64_t line;
};

void expect_rows(int (*skip)(Reader&), std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        ScoreText score(row.text);
        EXPECT_EQ(skip(score.reader), row.result);
        EXPECT_EQ(score.rest(), row.rest);
        EXPECT_EQ(score.reader.line, row.line);
    }
}

TEST(SkipBlanks, StaysOnTheLine) {
    std::int32_t pos = 0;
    skip_blanks(" \t\v\f\r\nx", pos);
    EXPECT_EQ(pos, 6);
    pos = 0;
    skip_blanks("  ", pos);
    EXPECT_EQ(pos, 2);
}

TEST(SkipLines, CrossesBlankLines) {
    expect_rows(skip_lines, {{"x\n", 0, "x ", 1},
                             {"  x\n", 0, "x ", 1},
                             {"\n \n\t\r\n  x y\nz\n", 0, "x y ", 4},
                             {"\n\n; x\n", 0, "; x ", 3}});
}

TEST(SkipLines, EndOfInputIsReported) {
    expect_rows(skip_lines, {{"", END_OF_INPUT, "", 0}, {" \n\n", END_OF_INPUT, "", 2}});
}

// The indicator is set as soon as the last line has been read.
TEST(SkipLines, ReadsOnInALastLineWithoutLineFeed) {
    ScoreText score("\n  x  ");
    EXPECT_EQ(skip_lines(score.reader), 0);
    EXPECT_NE(std::feof(score.reader.stream), 0);
    EXPECT_EQ(score.rest(), "x  ");
    ++score.reader.pos;
    EXPECT_EQ(skip_lines(score.reader), END_OF_INPUT);
    EXPECT_EQ(skip_lines(score.reader), END_OF_INPUT);
    EXPECT_EQ(score.reader.line, 2U);
}

TEST(SkipLines, PassesOnAnErrorOfTheNextLine) {
    expect_rows(skip_lines, {{"\n#endif\n", vorn::error::MISMATCHED_ENDIF, " ", 2}});
}

TEST(SkipWhite, EndOfInputIsNoFailure) {
    expect_rows(skip_white, {{"\n x\n", 0, "x ", 2}, {"", 0, "", 0}, {" \n\n", 0, "", 2}});
}

TEST(SkipWhite, PassesOnAnErrorOfTheNextLine) {
    expect_rows(skip_white, {{"\n#endif\n", vorn::error::MISMATCHED_ENDIF, " ", 2}});
}

TEST(SkipWc, TakesWhiteSpaceAndAComment) {
    expect_rows(skip_wc, {{"x\n", 0, "x ", 1},
                          {" ; c\nx\n", 0, "x ", 2},
                          {"/* c */x\n", 0, "x ", 1},
                          {"\n /* c\nc */ \n\n x\n", 0, "x ", 5},
                          {", x\n", 0, ", x ", 1}});
}

TEST(SkipWc, TakesOneCommentOnly) {
    expect_rows(skip_wc, {{"; c\n; d\nx\n", 0, "; d ", 2}, {"/* c */ /* d */ x\n", 0, "/* d */ x ", 1}});
}

TEST(SkipWc, EndOfInputIsNoFailure) {
    expect_rows(skip_wc, {{"", 0, "", 0}, {" ; c\n", 0, "", 1}, {"/* c\n", 0, "", 1}});
}

TEST(SkipStuff, TakesAtMostOneCommentOrSeparator) {
    expect_rows(skip_stuff, {{"60\n", 0, "60 ", 1},
                             {"  60\n", 0, "60 ", 1},
                             {", 60\n", 0, "60 ", 1},
                             {"/ 60\n", 0, "60 ", 1},
                             {"; c\n60\n", 0, "60 ", 2},
                             {"/* c */ 60\n", 0, "60 ", 1},
                             {"\n,\n\n60\n", 0, "60 ", 4},
                             {" , , 60\n", 0, ", 60 ", 1},
                             {"//60\n", 0, "/60 ", 1},
                             {",/60\n", 0, "/60 ", 1},
                             {",/* c */60\n", 0, "/* c */60 ", 1},
                             {"; c\n, 60\n", 0, ", 60 ", 2},
                             {"; c\n; d\n60\n", 0, "; d ", 2},
                             {": 60\n", 0, ": 60 ", 1}});
}

TEST(SkipStuff, BlockCommentEatsTheCommaOrSlashDirectlyBehindIt) {
    expect_rows(skip_stuff, {{"  /* text */, 60\n", 0, "60 ", 1},
                             {"/* c */,,60\n", 0, ",60 ", 1},
                             {"/* c *//60\n", 0, "60 ", 1},
                             {"/* c\n*/,60\n", 0, "60 ", 2},
                             {"/* c */ , 60\n", 0, ", 60 ", 1}});
}

// The "/" of a comment that follows directly is taken for a separator.
TEST(SkipStuff, BlockCommentEatsTheSlashOfTheNextComment) {
    expect_rows(skip_stuff, {{"/* c *//* d */ 60\n", 0, "* d */ 60 ", 1}});
}

TEST(SkipStuff, EndOfInputIsNoFailure) {
    expect_rows(skip_stuff, {{"", 0, "", 0}, {" \n,\n", 0, "", 2}, {"/* c\n", 0, "", 1}, {"; c", 0, "", 1}});
}

TEST(SkipStuff, PassesOnAnErrorOfTheNextLine) {
    expect_rows(skip_stuff, {{"/* c\n#endif\n", vorn::error::MISMATCHED_ENDIF, " ", 2}});
}

TEST(IsComment, KnowsBothKinds) {
    CommentKind kind{};
    EXPECT_TRUE(is_comment("a; b", 1, kind));
    EXPECT_EQ(kind, CommentKind::LINE);
    EXPECT_TRUE(is_comment("a/* b", 1, kind));
    EXPECT_EQ(kind, CommentKind::BLOCK);
    for (const char* text : {"/", "/ *", "*/", "x", "", "#", ">"}) {
        EXPECT_FALSE(is_comment(text, 0, kind)) << text;
    }
}

// A fresh line, and behind its comment: result, rest, lines.
void expect_behind_comment(const Row& row, CommentKind kind) {
    SCOPED_TRACE(row.text);
    ScoreText score(row.text);
    ASSERT_EQ(vorn::get_buff(score.reader), 0);
    EXPECT_EQ(skip_comment(score.reader, kind), row.result);
    EXPECT_EQ(score.rest(), row.rest);
    EXPECT_EQ(score.reader.line, row.line);
}

TEST(SkipComment, LineCommentsEndWithTheLine) {
    expect_behind_comment({"; a /* b\nx\n", 0, "", 1}, CommentKind::LINE);
    Reader reader;
    std::strcpy(reader.text, "; a\nb");
    EXPECT_EQ(skip_comment(reader, CommentKind::LINE), 0);
    EXPECT_EQ(reader.pos, 3);
}

TEST(SkipComment, BlockCommentsNest) {
    expect_behind_comment({"/* a /* b */ c */ x\n", 0, " x ", 1}, CommentKind::BLOCK);
    expect_behind_comment({"/*/* /* */*/*/x\n", 0, "x ", 1}, CommentKind::BLOCK);
    expect_behind_comment({"/* a\nb /* c\nd */ e */ x\n", 0, " x ", 3}, CommentKind::BLOCK);
}

TEST(SkipComment, TheOpeningStarClosesNothing) {
    expect_behind_comment({"/*/ a */x\n", 0, "x ", 1}, CommentKind::BLOCK);
}

TEST(SkipComment, LineCommentsMeanNothingInABlockComment) {
    expect_behind_comment({"/* ; */x\n", 0, "x ", 1}, CommentKind::BLOCK);
}

TEST(SkipComment, EndOfInputInABlockCommentIsReported) {
    expect_behind_comment({"/* a\nb *\n", END_OF_INPUT, "", 2}, CommentKind::BLOCK);
    expect_behind_comment({"/* a /* b */", END_OF_INPUT, "", 1}, CommentKind::BLOCK);
    expect_behind_comment({"/*", END_OF_INPUT, "", 1}, CommentKind::BLOCK);
}

TEST(SkipComment, ConditionalsAreActedOnInsideABlockComment) {
    expect_behind_comment({"/* a\n#if(0)\n*/ hidden\n#endif\n*/ x\n", 0, " x ", 5}, CommentKind::BLOCK);
}

}  // namespace
