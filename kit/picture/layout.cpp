#include "kit/picture/layout.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "kit/picture/brackets.h"
#include "kit/picture/plots.h"

// From top to bottom: each part takes its place below the one before, and what is
// left is the picture's height. Nothing depends on fonts or on time.

namespace vorn::kit {

namespace {

constexpr double GUTTER = 104;  // left of the plots, for names and values
constexpr double RIGHT_MARGIN = 4 * SPACE;
constexpr double LINE_HEIGHT = 18;
constexpr double AXIS_HEIGHT = 28;
constexpr double HEADING_HEIGHT = 24;
constexpr double PLOT_GAP = SPACE;
constexpr double PANEL_GAP = 3 * SPACE;
constexpr double TEMPO_HEIGHT = 36;
constexpr double TICK_ROOM = 64;
constexpr double TEMPO_GRAIN = 2;        // pixels
constexpr double NOTED_DRIFT = 4;        // pixels
constexpr double LEAST_LEVEL_RANGE = 1;  // decibels

std::string length_of(const ScoreView& view) {
    const std::string length = short_number(std::round((view.to - view.from) * 10) / 10);
    return length + (length == "1" ? " second" : " seconds");
}

std::vector<Panel> group_by_instrument(const ScoreView& view) {
    std::map<int, Panel> by_number;
    for (const BlockView& block : view.blocks) {
        Panel& panel = by_number[block.record->instrument];
        panel.instrument = block.record->instrument;
        panel.blocks.push_back(&block);
        panel.events += block.events;
        panel.rests += block.rests;
    }
    std::vector<Panel> panels;
    for (auto& [number, panel] : by_number) {
        panel.color = static_cast<int>(panels.size()) % COLOR_COUNT;
        panels.push_back(std::move(panel));
    }
    return panels;
}

std::size_t sum(const std::vector<Panel>& panels, std::size_t Panel::*count) {
    std::size_t total = 0;
    for (const Panel& panel : panels) total += panel.*count;
    return total;
}

void set_levels(Layout& layout, const ScoreView& view) {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    for (const BlockView& block : view.blocks) {
        if (block.level.pfield == 0) continue;
        for_each_seen(view, block, [&](const SeenEvent& event) {
            const double level = to_decibels(block.level, block.record->value(event.row, block.level.pfield));
            if (!std::isfinite(level)) return;
            low = std::min(low, level);
            high = std::max(high, level);
        });
    }
    if (!(high - low >= LEAST_LEVEL_RANGE)) return;
    layout.lowest_level = low;
    layout.highest_level = high;
}

void set_tempo(Layout& layout, const ScoreRun& run, const BeatMap& beats) {
    std::vector<double> seconds;
    const Scale& time = layout.time;
    for (double x = time.begin; x <= time.end; x += TEMPO_GRAIN) {
        seconds.push_back(time.low + (x - time.begin) / (time.end - time.begin) * (time.high - time.low));
    }
    TempoLane& lane = layout.tempo;
    lane.tempos = tempos_over_time(run, beats, seconds);
    if (lane.tempos.empty()) return;
    const auto [low, high] = std::minmax_element(lane.tempos.begin(), lane.tempos.end());
    lane.is_shown = *low < *high;
    lane.height = TEMPO_HEIGHT;
    lane.scale = {*low, *high, TEMPO_HEIGHT - 2, 2};
}

// Facts, broken into lines where the width asks for it.
void set_facts(Layout& layout, const std::vector<std::string>& facts) {
    const double width = layout.width - 2 * MARGIN;
    for (const std::string& fact : facts) {
        const std::string longer = layout.facts.empty() ? fact : layout.facts.back() + " \xC2\xB7 " + fact;
        if (!layout.facts.empty() && text_width(longer, TEXT_SIZE) <= width) {
            layout.facts.back() = longer;
        } else {
            layout.facts.push_back(fact);
        }
    }
}

std::vector<std::string> facts_of(const Layout& layout, const ScoreView& view) {
    std::vector<std::string> facts = {counted(sum(layout.panels, &Panel::events), "event"),
                                      counted(view.blocks.size(), "block"),
                                      counted(layout.panels.size(), "instrument"), length_of(view)};
    if (view.from > 0) facts.push_back("from second " + short_number(view.from));
    const std::vector<double>& tempos = layout.tempo.tempos;
    if (!tempos.empty() && !layout.tempo.is_shown) {
        facts.push_back(short_number(tempos[0]) + " beats per minute");
    }
    return facts;
}

double place_head(Layout& layout) {
    double y = MARGIN + TITLE_SIZE + SPACE;
    y += static_cast<double>(layout.facts.size()) * LINE_HEIGHT;
    if (!layout.beats.empty()) y += AXIS_HEIGHT;
    layout.beats_y = y;
    if (layout.tempo.is_shown) {
        layout.tempo.top = y + SPACE;
        y = layout.tempo.top + layout.tempo.height;
    }
    return y + 3 * SPACE;
}

double place_panel(Panel& panel, const Layout& layout, double y) {
    panel.top = y;
    y += HEADING_HEIGHT;
    y += place_brackets(panel, layout, y) + SPACE / 2;
    for (Plot& plot : panel.plots) {
        plot.top = y;
        y += plot.height + PLOT_GAP;
    }
    panel.bottom = y - PLOT_GAP;
    return panel.bottom + PANEL_GAP;
}

}  // namespace

Layout lay_out(const ScoreRun& run, const ScoreView& view, const PictureOptions& options) {
    Layout layout;
    layout.width = std::clamp(options.width, NARROWEST, WIDEST);
    layout.title = options.title;
    layout.time = {view.from, view.to, MARGIN + GUTTER, layout.width - RIGHT_MARGIN};
    layout.panels = group_by_instrument(view);
    const double second_of_pixel = (view.to - view.from) / (layout.time.end - layout.time.begin);
    const BeatMap beats(run, second_of_pixel / 2);
    layout.beats = beat_ticks(beats, layout.time, TICK_ROOM);
    layout.seconds = second_ticks(layout.time, TICK_ROOM);
    layout.strangers = beats.is_empty() ? 0 : beats.strangers(run, second_of_pixel * NOTED_DRIFT);
    set_tempo(layout, run, beats);
    set_levels(layout, view);
    set_facts(layout, facts_of(layout, view));
    double y = place_head(layout);
    for (Panel& panel : layout.panels) {
        panel.plots = make_plots(view, panel);
        y = place_panel(panel, layout, y);
    }
    layout.seconds_y = y - (layout.panels.empty() ? 0 : PANEL_GAP - SPACE);
    layout.legend_top = layout.seconds_y + AXIS_HEIGHT + SPACE;
    return layout;
}

}  // namespace vorn::kit
