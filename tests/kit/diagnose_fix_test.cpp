#include "kit/diagnose/fix.h"

#include <gtest/gtest.h>

#include "kit/diagnose/from_messages.h"
#include "table_sources.h"

namespace vorn::kit {

namespace {

const std::string BLOCK = "i1 = 4 0 4 {\np2 1\np3 1\n";

// The title of the fix of the first mistake; "none" where there is none.
std::string title_of(const std::string& score) {
    test::TableSources sources({{"in.vorn", score}});
    const ScoreRun run = run_score("in.vorn", {}, sources);
    const std::vector<Diagnostic> told = from_messages(run);
    if (told.empty()) return "no mistake";
    const auto fix = fix_of(told.back(), run.map);
    return fix ? fix->title : "none";
}

// Of edits that have been made up.
std::optional<Fix> fix_of_edits(std::vector<Edit> edits) {
    SourceMap map;
    map.add_file("a", "one two three");
    map.add_file("b", "four");
    Diagnostic diagnostic;
    diagnostic.edits = std::move(edits);
    return fix_of(diagnostic, map);
}

}  // namespace

TEST(Fix, HasATitleThatSaysWhatToWrite) {
    EXPECT_EQ(title_of(BLOCK + "p4 h4 }\n"), "none");
    EXPECT_EQ(title_of(BLOCK + "p4 c4 }\n"), "write `no` here");
    EXPECT_EQ(title_of(BLOCK + "P4 60 }\n"), "write `p` instead of `P`");
    EXPECT_EQ(title_of(BLOCK + "p4 ra(T 1 60 }\n"), "write `)` here");
    EXPECT_EQ(title_of(BLOCK + "p4 rx(T .5 60 .5 62) }\n"), "none");
    EXPECT_EQ(title_of(BLOCK + "p4 nt c4 }\n"), "write `no` instead of `nt`");
    EXPECT_EQ(title_of(BLOCK + "p4 = 60 }\n"), "leave out `=`");
    EXPECT_EQ(title_of(BLOCK + "p4=60 }\n"), "write a blank instead of `=`");
    EXPECT_EQ(title_of(BLOCK + "p4 == 60 }\n"), "leave out `==`");
    EXPECT_EQ(title_of("te 0 8 60 120\n" + BLOCK + "p4 60 }\n"),
              "write `te(0 8 60 120)` instead of `te 0 8 60 120`");
    EXPECT_EQ(title_of(BLOCK + "p4 60 }}\n"), "leave out `}`");
    EXPECT_EQ(title_of(BLOCK + "p4 60 } te(60)\n"), "begin a new line here");
}

TEST(Fix, StandsWhereItCures) {
    EXPECT_EQ(title_of("rs(5\n" + BLOCK + "p4 60 }\n"), "write `)` here");
    EXPECT_EQ(title_of("#const A 60\n" + BLOCK + "p4 A }\n"), "write `~` here");
    EXPECT_EQ(title_of("#define A #60#\n" + BLOCK + "p4 A }\n"), "write `$` here");
}

TEST(Fix, IsNoneWhereARunWithItGetsNoFurther) {
    EXPECT_EQ(title_of(BLOCK + "p4 no ra(T 1 [b4 c5]) }\n"), "write `f` here");
    EXPECT_EQ(title_of(BLOCK + "p4 no ra(T 1 [60 c5]) }\n"), "none");
    EXPECT_EQ(title_of(BLOCK + "p4 no c4\u2014e4 }\n"), "none");
    EXPECT_EQ(title_of("/* c */ tempo(120)\n" + BLOCK + "p4 60 }\n"), "none");
    EXPECT_EQ(title_of(BLOCK + "p4,60 ,62 }\n"), "write a blank instead of `,`");
    EXPECT_EQ(title_of("te 60 70\n" + BLOCK + "p4 60 }\n"), "none");
    for (const char* setting : {"rs(5, 6)", "rd(.5x)", "rd(50%)", "te(0 4 60 120 slow)"}) {
        EXPECT_EQ(title_of(setting + ("\n" + BLOCK) + "p4 60 }\n"), "none") << setting;
    }
}

TEST(Fix, NamesCharactersThatTheEyeDoesNotTellApart) {
    EXPECT_EQ(title_of(BLOCK + "p4 60 \u201362 }\n"), "write `-` instead of the en dash");
    EXPECT_EQ(title_of(BLOCK + "p4 60\u00A062 }\n"), "write a blank instead of the no-break space");
    EXPECT_EQ(title_of(BLOCK + "p4 60 \u200B62 }\n"), "leave out the zero width space");
    EXPECT_EQ(title_of("rs(1)\u2028" + BLOCK + "p4 60 }\n"), "begin a new line instead of the line end");
}

TEST(Fix, JoinsEditsInTheirOrder) {
    const auto fix = fix_of_edits({{{0, 8, 13}, "3"}, {{0, 0, 3}, "1"}, {{0, 4, 4}, "+"}});
    ASSERT_TRUE(fix);
    EXPECT_EQ(fix->span.begin, 0U);
    EXPECT_EQ(fix->span.end, 13U);
    EXPECT_EQ(fix->replacement, "1 +two 3");
    EXPECT_EQ(fix->title, "write `1 +two 3` instead of `one two three`");
}

TEST(Fix, IsNoneWhereEditsDoNotFitTogether) {
    EXPECT_FALSE(fix_of_edits({}));
    EXPECT_FALSE(fix_of_edits({{{0, 0, 3}, "1"}, {{1, 0, 4}, "4"}}));
    EXPECT_FALSE(fix_of_edits({{{0, 0, 3}, "1"}, {{0, 2, 4}, "4"}}));
}

}  // namespace vorn::kit
