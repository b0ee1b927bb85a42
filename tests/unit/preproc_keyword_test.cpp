#include "preproc/keyword.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    const char* text;
    const char* keyword;
    int result;
    std::int32_t pos;
};

class Keyword : public testing::TestWithParam<Row> {};

TEST_P(Keyword, IsCheckedAtOneCharacterAndTheWhiteSpaceBehindIt) {
    std::int32_t pos = 0;
    EXPECT_EQ(vorn::skip_keyword(GetParam().text, pos, GetParam().keyword), GetParam().result);
    EXPECT_EQ(pos, GetParam().pos);
}

INSTANTIATE_TEST_SUITE_P(Texts, Keyword,
                         testing::Values(Row{"define A", "define", 0, 6}, Row{"define\tA", "define", 0, 6},
                                         Row{"undef A", "undef", 0, 5}, Row{"const A", "const", 0, 5},
                                         Row{"defineA", "define", 80, 6}, Row{"define", "define", 80, 6},
                                         Row{"def A", "define", 80, 5}, Row{"d", "define", 80, 1},
                                         Row{"", "undef", 80, 0}, Row{"undefA #", "undef", 80, 5},
                                         Row{"xxxxx A", "undef", 80, 0}, Row{"constant 1", "const", 80, 5}));

TEST(KeywordNames, DefineUndefAndConstNeedOneMatchingLetter) {
    for (const char* text : {"dxxxxx A", "xexxxx A", "xxxxxe A", "d e f  A"}) {
        std::int32_t pos = 0;
        EXPECT_EQ(vorn::skip_keyword(text, pos, "define"), 0) << text;
        EXPECT_EQ(pos, 6) << text;
    }
    for (const char* text : {"uxxxx A", "xxxxf A"}) {
        std::int32_t pos = 0;
        EXPECT_EQ(vorn::skip_keyword(text, pos, "undef"), 0) << text;
    }
    for (const char* text : {"cxxxx A", "xxxxt A"}) {
        std::int32_t pos = 0;
        EXPECT_EQ(vorn::skip_keyword(text, pos, "const"), 0) << text;
    }
}

}  // namespace
