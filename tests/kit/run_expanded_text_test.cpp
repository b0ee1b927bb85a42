#include "kit/run/expanded_text.h"

#include <gtest/gtest.h>

#include "tests/kit/table_sources.h"

// The lines as their readers saw them, and stretches without their comments.

namespace vorn::kit::test {

namespace {

std::string line_of(const ScoreRun& run, std::uint64_t number) {
    std::string line(run.expanded.line(number));
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

Excerpt excerpt_of(const std::string& text) {
    const ScoreRun run = run_text(text);
    return run.expanded.excerpt({1, 0}, {run.expanded.lines(), 100});
}

TEST(ExpandedText, HoldsLinesAfterMacrosAndConstants) {
    const ScoreRun run =
        run_text("#define A(x) # x x #\n#const B 2.5\n> $A(p $A(q)) ~B ~[B * 2] ; $A(r)\n> end");
    EXPECT_EQ(run.expanded.lines(), 4U);
    EXPECT_EQ(line_of(run, 3).substr(0, 2), "> ");
    EXPECT_NE(line_of(run, 3).find(" 2.500 5.000 ; $A(r)"), std::string::npos);
    EXPECT_EQ(line_of(run, 4), "> end");
    EXPECT_EQ(run.expanded.line(0), "");
    EXPECT_EQ(run.expanded.line(5), "");
}

TEST(ExpandedText, IsBlankWhereAConditionLeavesOut) {
    const ScoreRun run = run_text("#if(0)\n> one\n#endif\n#if(1)\n> two\n#endif\n");
    EXPECT_EQ(line_of(run, 2), "");
    EXPECT_EQ(line_of(run, 3), "");
    EXPECT_EQ(line_of(run, 4), "");
    EXPECT_EQ(line_of(run, 5), "> two");
}

TEST(ExpandedText, ExcerptsHaveNoComments) {
    const Excerpt excerpt = excerpt_of("> a ; b /*\n> c /* d\n /* e */ f */ g\n");
    std::string visible;
    for (const char c : excerpt.text) {
        if (c != ' ') visible += c;
    }
    EXPECT_EQ(visible, ">a>cg");
}

TEST(ExpandedText, ExcerptsKnowTheirPlaces) {
    const ScoreRun run = run_text("> one\n> two\n> six\n");
    const Excerpt excerpt = run.expanded.excerpt({1, 2}, {3, 3});
    EXPECT_EQ(excerpt.text, "one > two > s");
    const LinePlace two = excerpt.place(excerpt.text.find("two"));
    EXPECT_EQ(two.line, 2U);
    EXPECT_EQ(two.pos, 2);
    EXPECT_EQ(excerpt.place(0).pos, 2);
    EXPECT_EQ(excerpt.place(0).line, 1U);
}

TEST(ExpandedText, KeepsNoMoreThanItsLimit) {
    ExpandedText text;
    const std::string line(1 << 20, 'a');
    for (int n = 0; n < 70; ++n) text.add_line(line, true);
    EXPECT_EQ(text.lines(), 70U);
    EXPECT_EQ(text.line(64).size(), line.size());
    EXPECT_EQ(text.line(65), "");
    EXPECT_EQ(text.line(70), "");
}

}  // namespace

}  // namespace vorn::kit::test
