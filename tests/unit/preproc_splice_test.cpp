#include "preproc/splice.h"

#include "unit/preproc_fixture.h"

namespace {

using vorn::splice;
using vorn::test::Line;

TEST(Splice, ReplacesAStretchByAnyLength) {
    Line line("re $A 60");
    EXPECT_TRUE(splice(line.text, 3, 5, "1 2 3"));
    EXPECT_STREQ(line.text, "re 1 2 3 60");
    EXPECT_TRUE(splice(line.text, 3, 8, ""));
    EXPECT_STREQ(line.text, "re  60");
    EXPECT_TRUE(splice(line.text, 6, 6, "!"));
    EXPECT_STREQ(line.text, "re  60!");
    EXPECT_TRUE(splice(line.text, 0, 7, "x"));
    EXPECT_STREQ(line.text, "x");
}

TEST(Splice, FillsTheLineToItsLastByte) {
    Line line("ab");
    EXPECT_TRUE(splice(line.text, 1, 1, std::string(4093, 'x').c_str()));
    EXPECT_EQ(std::string(line.text), "a" + std::string(4093, 'x') + "b");
}

TEST(Splice, RefusesWhatWouldNotFitAndLeavesTheTextAlone) {
    Line line("ab");
    EXPECT_FALSE(splice(line.text, 1, 1, std::string(4094, 'x').c_str()));
    EXPECT_STREQ(line.text, "ab");
}

}  // namespace
