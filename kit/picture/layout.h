#pragma once

#include <string>
#include <vector>

#include "kit/picture/beats.h"
#include "kit/picture/scale.h"
#include "kit/picture/score_view.h"
#include "kit/picture/theme.h"

// Where everything of a picture stands, before anything is drawn:
//
//     title, facts
//     axis of beats, tempo
//     a panel for each instrument: heading, blocks, piano roll, a lane for each p-field
//     axis of seconds, legend

namespace vorn::kit {

struct PictureOptions {
    ViewOptions view;
    std::string title;
    double width = 1200;  // pixels
    Theme theme = Theme::AUTOMATIC;
};

constexpr double NARROWEST = 360;
constexpr double WIDEST = 20000;

enum class PlotKind {
    ROLL,     // pitch over time
    STROKES,  // events without a pitch, all on one height
    LANE,     // a p-field over time
};

struct Plot {
    PlotKind kind = PlotKind::LANE;
    int pfield = 0;  // of a lane; of a roll where all blocks agree, else 0
    Scale scale;     // value, of a roll the key, to height
    double top = 0;
    double height = 0;
    std::string name;   // "P4"
    std::string role;   // "pitch", "level" or nothing
    std::string range;  // in words, of the events: "from c4 to g4"
    std::vector<Tick> ticks;
    bool is_decibels = false;    // a lane of amplitudes that are written as decibels, and drawn so
    bool is_constant = false;    // a lane of which all values are equal
    std::size_t not_finite = 0;  // values that are infinite or no numbers
};

// A block of a panel, drawn above its plots.
struct Bracket {
    double begin = 0;
    double end = 0;
    double y = 0;
    std::string label;        // empty where there is no room for it
    bool has_border = false;  // its begin and end are drawn through the plots
};

struct Panel {
    int instrument = 0;
    int color = 0;
    std::vector<const BlockView*> blocks;
    std::vector<Bracket> brackets;
    std::vector<double> borders;  // of blocks, drawn through the plots
    std::vector<Plot> plots;
    std::size_t events = 0;
    std::size_t rests = 0;
    double top = 0;     // of the heading
    double bottom = 0;  // of the last plot
};

struct TempoLane {
    bool is_shown = false;  // the tempo changes
    double top = 0;
    double height = 0;
    Scale scale;
    std::vector<double> tempos;  // at the left edge of every second pixel
};

struct Layout {
    double width = 0;
    double height = 0;
    Scale time;  // seconds to pixels
    std::string title;
    std::vector<std::string> facts;  // lines below the title
    double beats_y = 0;              // the lines of the two axes
    double seconds_y = 0;
    std::vector<Tick> beats;
    std::vector<Tick> seconds;
    TempoLane tempo;
    std::vector<Panel> panels;
    std::size_t strangers = 0;  // blocks that keep beats of their own
    double lowest_level = 0;    // decibels, of all events seen; equal: levels are not shown
    double highest_level = 0;
    double legend_top = 0;
};

// `view` must outlive the layout.
[[nodiscard]] Layout lay_out(const ScoreRun& run, const ScoreView& view, const PictureOptions& options);

// The value that a plot shows of an event; nothing where it shows none.
[[nodiscard]] std::optional<double> plotted_value(const Plot& plot, const BlockView& block, std::size_t row);

}  // namespace vorn::kit
