#include "preproc/comment_state.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class CommentState : public testing::Test {
protected:
    void SetUp() override { vorn::reset_comment_state(); }
    void TearDown() override { vorn::reset_comment_state(); }

    // ";" under each character of a line at which a comment is open.
    static std::string scan(const std::string& line) {
        std::string row;
        vorn::CommentScan comment;
        for (std::size_t at = 0; at < line.size(); ++at) {
            comment.track(line[at], at + 1 < line.size() ? line[at + 1] : '\0');
            row += vorn::IN_COMMENT ? ';' : '.';
        }
        comment.end_line();
        return row;
    }
};

TEST_F(CommentState, BlockCommentEndsAtItsFirstClosingMark) {
    EXPECT_EQ(scan("a/*b/*c*/d"), ".;;;;;;...");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(CommentState, BlockCommentStaysOpenOverLines) {
    EXPECT_EQ(scan("a/*"), ".;;");
    EXPECT_EQ(scan("b;c"), ";;;");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
    EXPECT_EQ(scan("*/d"), "...");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(CommentState, LineCommentEndsWithItsLine) {
    EXPECT_EQ(scan("a;b"), ".;;");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(CommentState, SlashStarInsideALineCommentOpens) {
    EXPECT_EQ(scan(";/*"), ";;;");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
}

TEST_F(CommentState, StarSlashInsideALineCommentCloses) {
    EXPECT_EQ(scan(";a*/b"), ";;...");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(CommentState, SlashStarSlashOpensAndCloses) { EXPECT_EQ(scan("/*/a"), ";..."); }

}  // namespace
