#include "kit/vary/miniature.h"

#include <gtest/gtest.h>

#include "tests/kit/table_sources.h"

namespace vorn::kit {
namespace {

using test::run_text;

TEST(Miniature, NotesStandAtTheirTimeAndPitch) {
    const Miniature picture = miniature(run_text("i1 = 5 0 4 {\np2 1\np3 1\np4 80\np5 60 64 67 72\n}\n"));
    EXPECT_EQ(picture.events, 4U);
    EXPECT_DOUBLE_EQ(picture.seconds, 4);
    // Twelve keys and one more around each end, the middle of 60 and 72 in their middle.
    EXPECT_DOUBLE_EQ(picture.low, 59);
    EXPECT_DOUBLE_EQ(picture.high, 74);
    // Row 14 is key 60, row 2 is 72; a column of four seconds in 640 begins at 479 for the fourth.
    EXPECT_NE(picture.svg.find("M0 14h"), std::string::npos) << picture.svg;
    EXPECT_NE(picture.svg.find("M479 2h"), std::string::npos) << picture.svg;
}

TEST(Miniature, InstrumentsHaveColoursOfTheirOwn) {
    const std::string block = " = 5 0 -1 {\np2 1\np3 1\np4 80\np5 60\n}\n";
    const std::string svg = miniature(run_text("i1" + block + "i7" + block + "i1" + block)).svg;
    EXPECT_NE(svg.find("<path class=\"a\""), std::string::npos);
    EXPECT_NE(svg.find("<path class=\"b\""), std::string::npos);
    EXPECT_EQ(svg.find("<path class=\"c\""), std::string::npos);
}

TEST(Miniature, NothingThatSoundsIsAnEmptyPicture) {
    for (const char* const text : {"; nothing\n", "i1 = 4 0 2 {\np2 1\np3 r\np4 60\n}\n"}) {
        const Miniature picture = miniature(run_text(text));
        EXPECT_EQ(picture.events, 0U);
        EXPECT_EQ(picture.seconds, 0);
        EXPECT_EQ(picture.svg.find("<path"), std::string::npos);
    }
}

TEST(Miniature, ManyEventsStaySmall) {
    const Miniature picture =
        miniature(run_text("i1 = 5 0 -200000 {\np2 .001\np3 .001\np4 80\np5 ra(T 1 [0 127])\n}\n"));
    EXPECT_EQ(picture.events, 200000U);
    EXPECT_LT(picture.svg.size(), 500000U);
}

}  // namespace
}  // namespace vorn::kit
