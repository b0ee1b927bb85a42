#include <gtest/gtest.h>

#include <set>

#include "kit/picture/marks.h"
#include "kit/picture/picture.h"
#include "kit/picture/svg_writer.h"
#include "table_sources.h"

// What stands where, before anything is drawn.

namespace vorn::kit {
namespace {

const char* const TUNE =
    "te(120)\n"
    "i1 = 6 0 4 {\n"
    "p2 1\n"
    "p3 .5\n"
    "p4 70 60\n"
    "p5 no c4 e r g\n"
    "p6 .5\n"
    "}\n";

struct Drawn {
    explicit Drawn(const std::string& text, const PictureOptions& wanted = {})
        : run(test::run_text(text)), options(wanted), view(view_score(run, options.view)) {
        EXPECT_EQ(run.status, 0);
        layout = lay_out(run, view, options);
    }
    PlotMarks marks(std::size_t panel, std::size_t plot) const {
        return make_marks(layout, view, layout.panels[panel], layout.panels[panel].plots[plot]);
    }

    ScoreRun run;
    PictureOptions options;
    ScoreView view;
    Layout layout;
};

std::size_t bar_count(const PlotMarks& marks) {
    std::size_t count = 0;
    for (const auto& bars : marks.bars) count += bars.size();
    return count;
}

std::vector<std::string> labels(const std::vector<Tick>& ticks) {
    std::vector<std::string> texts;
    for (const Tick& tick : ticks) texts.push_back(tick.label);
    return texts;
}

using Texts = std::vector<std::string>;

TEST(Layout, GivesAnInstrumentARollAndALaneForEachFurtherField) {
    const Drawn drawn(TUNE);
    ASSERT_EQ(drawn.layout.panels.size(), 1U);
    const Panel& panel = drawn.layout.panels[0];
    ASSERT_EQ(panel.plots.size(), 3U);
    EXPECT_EQ(panel.plots[0].kind, PlotKind::ROLL);
    EXPECT_EQ(panel.plots[0].pfield, 5);
    EXPECT_EQ(panel.plots[1].name, "P4");
    EXPECT_EQ(panel.plots[1].role, "level");
    EXPECT_EQ(labels(panel.plots[1].ticks), (Texts{"70", "60"}));
    EXPECT_TRUE(panel.plots[2].is_constant);
    EXPECT_EQ(labels(panel.plots[2].ticks), (Texts{"0.5"}));
    EXPECT_EQ(panel.brackets[0].label, "line 2");
}

TEST(Layout, TellsRangesAsTheScoreWritesThem) {
    // 20 log10(3981) is 72: what was given in decibels and is written so is told so.
    const Drawn drawn("i1 = 5 0 -3 {\np2 1\np3 1\np4(db) db 72 60 66\np5 no c4\n}\n");
    const Plot& lane = drawn.layout.panels[0].plots[1];
    EXPECT_EQ(labels(lane.ticks), (Texts{"72", "60"}));
    const double middle = lane.scale(*plotted_value(lane, drawn.view.blocks[0], 2));
    EXPECT_NEAR(middle, (lane.ticks[0].place + lane.ticks[1].place) / 2, 0.1);  // decibels are even
}

TEST(Layout, LeavesRestsOutAndCountsThem) {
    const Drawn drawn(TUNE);
    EXPECT_EQ(drawn.layout.panels[0].events, 3U);
    EXPECT_EQ(drawn.layout.panels[0].rests, 1U);
    EXPECT_EQ(bar_count(drawn.marks(0, 0)), 3U);
}

TEST(Layout, HasRoundBeatsAndSeconds) {
    const Drawn drawn(TUNE);  // two beats a second; the last note ends at 1.75 seconds
    EXPECT_EQ(labels(drawn.layout.beats), (Texts{"0", "0.5", "1.0", "1.5", "2.0", "2.5", "3.0", "3.5"}));
    const Tick& third = drawn.layout.beats[6];
    EXPECT_NEAR(third.place, drawn.layout.time(1.5), 0.01);
    EXPECT_NEAR(drawn.layout.time.high, 1.75, 1e-6);
}

TEST(Layout, PutsAnEventWhereItsSecondsAre) {
    const Drawn drawn(TUNE);
    const PlotMarks marks = drawn.marks(0, 0);
    // Levels 70 60 60: the first note is full, the others are faint.
    ASSERT_EQ(marks.bars[SHADE_COUNT - 1].size(), 1U);
    ASSERT_EQ(marks.bars[0].size(), 2U);
    EXPECT_DOUBLE_EQ(marks.bars[SHADE_COUNT - 1][0].x, drawn.layout.time(0));
    EXPECT_NEAR(marks.bars[0][1].x, drawn.layout.time(1.5), 0.01);
    EXPECT_GT(marks.bars[0][0].y, marks.bars[0][1].y);  // e is drawn below g
}

TEST(Layout, DrawsTheTempoWhereItChanges) {
    EXPECT_FALSE(Drawn(TUNE).layout.tempo.is_shown);
    const Drawn slowing("te(0 8 120 60 f)\ni1 = 5 0 8 {\np2 1\np3 1\np4 70\np5 60\n}\n");
    ASSERT_TRUE(slowing.layout.tempo.is_shown);
    EXPECT_DOUBLE_EQ(slowing.layout.tempo.tempos.front(), 120);
    EXPECT_NEAR(slowing.layout.tempo.tempos.back(), 60, 1);
}

TEST(Layout, UsesTheTempoThatHeldForEachBlock) {
    // The second definition replaces the first, but only for the block behind it.
    const Drawn drawn(
        "te(120)\ni1 = 4 0 4 {\np2 1\np3 1\np4 60\n}\nte(60)\ni2 = 4 4 -2 {\np2 1\np3 1\np4 60\n}\n");
    EXPECT_DOUBLE_EQ(drawn.layout.tempo.tempos.front(), 120);
    EXPECT_DOUBLE_EQ(drawn.layout.tempo.tempos.back(), 60);
}

TEST(Layout, DrawsEventsWithoutAPitchOnOneLine) {
    const Drawn drums("i1 = 3 0 4 {\np2 1\np3 .1\n}\n");
    ASSERT_EQ(drums.layout.panels[0].plots.size(), 1U);
    EXPECT_EQ(drums.layout.panels[0].plots[0].kind, PlotKind::STROKES);
    EXPECT_EQ(bar_count(drums.marks(0, 0)), 4U);
    PictureOptions options;
    options.view.has_pitch = false;
    const Drawn tune(TUNE, options);
    EXPECT_EQ(tune.layout.panels[0].plots.size(), 4U);
    EXPECT_EQ(tune.layout.panels[0].plots[0].kind, PlotKind::STROKES);
}

TEST(Layout, TakesTheFieldThatIsAskedForAsThePitch) {
    PictureOptions options;
    options.view.roles.pitch = 4;
    const Drawn drawn(TUNE, options);
    EXPECT_EQ(drawn.layout.panels[0].plots[0].pfield, 4);
    EXPECT_EQ(drawn.layout.panels[0].plots[1].name, "P5");
}

TEST(Layout, ShowsOnlyTheSecondsThatAreAskedFor) {
    PictureOptions options;
    options.view.from = 0.6;
    options.view.to = 1;
    const Drawn drawn(TUNE, options);
    EXPECT_EQ(drawn.layout.panels[0].events, 1U);  // e from 0.5 to 0.75; g begins at 1.5
    const PlotMarks marks = drawn.marks(0, 0);
    EXPECT_EQ(bar_count(marks), 1U);
}

TEST(Layout, ShowsValuesThatAreNotFiniteAsSuch) {
    const Drawn drawn(
        "i1 = 5 0 -3 {\np2 1\np3 1\n"
        "p4 pf(100000000000) re 100000000000000000000000000000000000 1 2\np5 no c4\n}\n");
    const Panel& panel = drawn.layout.panels[0];
    EXPECT_EQ(panel.plots[1].not_finite, 1U);
    EXPECT_EQ(drawn.marks(0, 1).odd.size(), 1U);
    EXPECT_EQ(bar_count(drawn.marks(0, 1)), 2U);
}

TEST(Layout, SurvivesScoresWithoutAnything) {
    const Drawn silent("i1 = 5 0 -4 {\np2 1\np3 -1\np4 1\np5 60\n}\n");
    EXPECT_EQ(silent.layout.panels[0].events, 0U);
    EXPECT_EQ(silent.layout.panels[0].rests, 4U);
    const Drawn empty("; nothing\n");
    EXPECT_TRUE(empty.layout.panels.empty());
    EXPECT_NE(picture(empty.run, {}).find("no events"), std::string::npos);
}

TEST(Marks, BecomeDensityWhereTheyAreTooMany) {
    const std::string head = "i1 = 5 0 -";
    const std::string body = " {\np2 .01\np3 1\np4 ra(T 1 [60 70])\np5 ra(T 1 [40 80])\n}\n";
    EXPECT_FALSE(Drawn(head + "500" + body).marks(0, 0).is_density);
    const Drawn dense(head + "20000" + body);
    const PlotMarks marks = dense.marks(0, 0);
    EXPECT_TRUE(marks.is_density);
    EXPECT_GT(marks.most, 1U);
    const double cells = (dense.layout.time.end - dense.layout.time.begin) / 2 * 120;
    EXPECT_LT(static_cast<double>(bar_count(marks)), cells);
}

TEST(Marks, HaveARowForEachKey) {
    std::string keys;
    for (int key = 40; key < 90; ++key) keys += std::to_string(key) + " ";
    const Drawn drawn("i1 = 5 0 -20000 {\np2 .01\np3 50\np4 60\np5 <" + keys + ">\n}\n");
    const PlotMarks marks = drawn.marks(0, 0);
    ASSERT_TRUE(marks.is_density);
    std::set<double> heights;
    for (const auto& bars : marks.bars) {
        for (const Bar& bar : bars) heights.insert(bar.y);
    }
    EXPECT_EQ(heights.size(), 50U);
}

TEST(Marks, CountWhatSoundsAtOnce) {
    // 4,000 notes of one key, ten of which sound together once all have begun.
    const Drawn drawn("i1 = 5 0 -4000 {\np2 .1\np3 10\np4 60\np5 60\n}\n");
    const PlotMarks marks = drawn.marks(0, 0);
    ASSERT_TRUE(marks.is_density);
    const double seconds_of_cell = 2 * 401 / (drawn.layout.time.end - drawn.layout.time.begin);
    const auto expected = static_cast<std::uint32_t>(10 + seconds_of_cell / 0.1);
    EXPECT_NEAR(marks.most, expected, 2);
}

TEST(Brackets, StackWhatOverlapsAndKeepLabelsApart) {
    std::string score;
    for (int block = 0; block < 3; ++block) score += "i1 = 4 0 10 {\np2 1\np3 1\np4 60\n}\n";
    score += "i1 = 4 10 10 {\np2 1\np3 1\np4 60\n}\n";
    const Drawn drawn(score);
    const std::vector<Bracket>& brackets = drawn.layout.panels[0].brackets;
    ASSERT_EQ(brackets.size(), 4U);
    EXPECT_LT(brackets[0].y, brackets[1].y);
    EXPECT_LT(brackets[1].y, brackets[2].y);
    EXPECT_DOUBLE_EQ(brackets[3].y, brackets[0].y);
}

TEST(Brackets, OfThousandsAreFew) {
    std::string score;
    for (int block = 0; block < 3000; ++block) {
        score += "i1 = 4 " + std::to_string(block) + " 1 {\np2 1\np3 1\np4 60\n}\n";
    }
    const Drawn drawn(score);
    EXPECT_LE(drawn.layout.panels[0].brackets.size(), 1500U);
    EXPECT_TRUE(drawn.layout.panels[0].borders.empty());
    EXPECT_LT(drawn.layout.height, 1000);
}

TEST(SvgWriter, EscapesMarkupAndReplacesWhatIsNoText) {
    EXPECT_EQ(escape_markup("<script>&\"'"), "&lt;script&gt;&amp;&quot;&#39;");
    EXPECT_EQ(escape_markup("\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E"), "\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E");
    const std::string odd = "\xEF\xBF\xBD";
    EXPECT_EQ(escape_markup("a\xFF"
                            "b"),
              "a" + odd + "b");
    EXPECT_EQ(escape_markup("\xC3"), odd);            // cut off
    EXPECT_EQ(escape_markup("\xC0\xAF"), odd + odd);  // overlong
    EXPECT_EQ(escape_markup("\xED\xA0\x80"), odd);    // surrogate
    EXPECT_EQ(escape_markup(std::string("\0\x1B\x7F", 3)), odd + odd + odd);
}

TEST(SvgWriter, WritesCoordinatesWithTwoDecimals) {
    const auto written = [](double value) {
        std::string text;
        append_coordinate(text, value);
        return text;
    };
    EXPECT_EQ(written(12), "12");
    EXPECT_EQ(written(12.5), "12.5");
    EXPECT_EQ(written(0.254), "0.25");
    EXPECT_EQ(written(-0.05), "-0.05");
    EXPECT_EQ(written(NAN), "0");
}

TEST(Picture, HasTheSameBytesEachTime) {
    const std::string first = picture(Drawn(TUNE).run, {});
    EXPECT_EQ(picture(Drawn(TUNE).run, {}), first);
}

}  // namespace
}  // namespace vorn::kit
