#include "kit/diagnose/plain_words.h"

#include <gtest/gtest.h>

#include "kit/diagnose/edit_distance.h"

// Words laid out and compared.

namespace vorn::kit {
namespace {

TEST(PlainWords, OneLine) {
    EXPECT_EQ(on_one_line("a \nb\n c  d\n"), "a b c d");
    EXPECT_EQ(on_one_line(""), "");
}

TEST(PlainWords, WrappedAtTheWidth) {
    EXPECT_EQ(wrapped("aa bb cc", 5), "aa bb\ncc\n");
    EXPECT_EQ(wrapped("aa bb cc", 4), "aa\nbb\ncc\n");
    EXPECT_EQ(wrapped("a toolong b", 5), "a\ntoolong\nb\n");
    EXPECT_EQ(wrapped("a", 5), "a\n");
    EXPECT_EQ(wrapped("", 5), "\n");
}

TEST(PlainWords, IndentedButForEmptyLines) { EXPECT_EQ(indented("a\n\nb\n", "  "), "  a\n\n  b\n"); }

TEST(EditDistance, CountsLettersPutInLeftOutChangedAndExchanged) {
    EXPECT_EQ(edit_distance("", ""), 0U);
    EXPECT_EQ(edit_distance("ra", "ra"), 0U);
    EXPECT_EQ(edit_distance("", "ra"), 2U);
    EXPECT_EQ(edit_distance("ra", "r"), 1U);
    EXPECT_EQ(edit_distance("r", "ra"), 1U);
    EXPECT_EQ(edit_distance("ra", "rw"), 1U);
    EXPECT_EQ(edit_distance("ra", "ar"), 1U);
    EXPECT_EQ(edit_distance("kitten", "sitting"), 3U);
    EXPECT_EQ(edit_distance("include", "inculde"), 1U);
}

}  // namespace
}  // namespace vorn::kit
