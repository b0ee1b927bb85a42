#include "kit/run/text_index.h"

#include <gtest/gtest.h>

#include <string>

namespace vorn::kit {

TEST(TextIndex, FindsLinesByTheirBeginnings) {
    const std::string text = "one\ntwo\r\n\nfour";
    const TextIndex index(text);
    EXPECT_EQ(index.line_of(0), 0U);
    EXPECT_EQ(index.line_of(3), 0U);  // the line feed belongs to its line
    EXPECT_EQ(index.line_of(4), 1U);
    EXPECT_EQ(index.line_of(9), 2U);
    EXPECT_EQ(index.line_of(text.size()), 3U);
    EXPECT_EQ(index.line(text, 0), "one");
    EXPECT_EQ(index.line(text, 1), "two");
    EXPECT_EQ(index.line(text, 2), "");
    EXPECT_EQ(index.line(text, 3), "four");
}

TEST(TextIndex, TakesAnEmptyTextAndAnEmptyLastLine) {
    EXPECT_EQ(TextIndex("").line("", 0), "");
    EXPECT_EQ(TextIndex("a\n").line_of(2), 1U);
    EXPECT_EQ(TextIndex("a\n").line("a\n", 1), "");
}

TEST(TextIndex, CountsCharactersAcrossStretches) {
    std::string text;
    while (text.size() < 20'000) text += "aö€";  // 1, 2 and 3 bytes
    const TextIndex index(text);
    EXPECT_EQ(index.characters(text, 0, 6), 3U);
    EXPECT_EQ(index.characters(text, 0, 6 * 3'000), 9'000U);
    EXPECT_EQ(index.characters(text, 6 * 700, 6 * 3'000), 6'900U);
    EXPECT_EQ(index.characters(text, 0, text.size()), count_characters(text));
}

}  // namespace vorn::kit
