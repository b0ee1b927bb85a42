#include "kit/picture/marks.h"

#include <musl/portable_math.h>
#include <algorithm>
#include <cmath>

// Density is counted on a grid of cells. An event adds one where it begins and takes
// one away behind its end; the running sum along a row is then the number of events
// in each cell, whatever their length. Neighbours of equal shade become one bar:
//
//     +1 . . +1 . -1 . -1   ->   1 1 1 2 2 1 1 0   ->   ---===--

namespace vorn::kit {

namespace {

constexpr double CELL_WIDTH = 2;
constexpr double LEAST_CELL_HEIGHT = 2;
constexpr double LEAST_BAR_WIDTH = 2;
constexpr double BAR_GAP = 0.75;  // between a bar and the next of the same height
constexpr double WIDTH_WITH_GAP = 4;
constexpr double LANE_THICKNESS = 2.5;
constexpr double STROKE_SHARE = 0.8;  // of the height of a line of strokes
constexpr double MOST_THICKNESS = 9;
constexpr int FULLEST = SHADE_COUNT - 1;

double thickness_of(const Plot& plot) {
    const double unit = plot.height / (plot.scale.high - plot.scale.low);
    switch (plot.kind) {
        case PlotKind::ROLL:
            return std::clamp(unit * 0.8, 2.0, MOST_THICKNESS);
        case PlotKind::STROKES:
            return plot.height * STROKE_SHARE;
        case PlotKind::LANE:
            return LANE_THICKNESS;
    }
    return LANE_THICKNESS;
}

int shade_of_share(double share) { return std::clamp(static_cast<int>(share * SHADE_COUNT), 0, FULLEST); }

// Louder is fuller; silence and what is no level are faint.
int shade_of_level(const Layout& layout, const BlockView& block, std::size_t row) {
    const double range = layout.highest_level - layout.lowest_level;
    if (range <= 0 || block.level.pfield == 0) return FULLEST;
    const double level = to_decibels(block.level, block.record->value(row, block.level.pfield));
    return std::isfinite(level) ? shade_of_share((level - layout.lowest_level) / range) : 0;
}

// visit(block, event, value) for all that the plot shows.
template <typename Visit>
void for_each_value(const ScoreView& view, const Panel& panel, const Plot& plot, Visit visit) {
    for (const BlockView* const block : panel.blocks) {
        for_each_seen(view, *block, [&](const SeenEvent& event) {
            if (const auto value = plotted_value(plot, *block, event.row)) visit(*block, event, *value);
        });
    }
}

Bar bar_of(const Layout& layout, const Plot& plot, const SeenEvent& event, double value) {
    const double begin = layout.time(event.begin);
    const double length = layout.time(event.end) - begin;
    const double width = length > WIDTH_WITH_GAP ? length - BAR_GAP : std::max(length, LEAST_BAR_WIDTH);
    return {begin, plot.top + plot.scale(value), width};
}

void make_bars(PlotMarks& marks, const Layout& layout, const ScoreView& view, const Panel& panel,
               const Plot& plot) {
    for_each_value(view, panel, plot, [&](const BlockView& block, const SeenEvent& event, double value) {
        if (!std::isfinite(value)) {
            marks.odd.push_back(layout.time(event.begin));
            return;
        }
        const bool has_level = plot.kind != PlotKind::LANE;
        const int shade = has_level ? shade_of_level(layout, block, event.row) : FULLEST;
        marks.bars[static_cast<std::size_t>(shade)].push_back(bar_of(layout, plot, event, value));
    });
}

class Grid {
public:
    Grid(const Layout& layout, const Plot& plot)
        : layout_(layout),
          plot_(plot),
          columns_(static_cast<std::size_t>((layout.time.end - layout.time.begin) / CELL_WIDTH) + 1),
          rows_(row_count(plot)),
          counts_(rows_ * (columns_ + 1)) {}

    double row_height() const { return plot_.height / static_cast<double>(rows_); }

    void add(const SeenEvent& event, double value) {
        const double share = (plot_.scale(value)) / plot_.height;
        const auto row = static_cast<std::size_t>(
            std::clamp(share * static_cast<double>(rows_), 0.0, static_cast<double>(rows_ - 1)));
        const std::size_t first = row * (columns_ + 1);
        ++counts_[first + column(event.begin)];
        --counts_[first + column(event.end) + 1];
    }

    void count() {
        for (std::size_t row = 0; row < rows_; ++row) {
            for (std::size_t at = 1; at <= columns_; ++at) cell(row, at) += cell(row, at - 1);
        }
    }

    std::int32_t most() const { return *std::max_element(counts_.begin(), counts_.end()); }

    void make_bars(PlotMarks& marks) {
        for (std::size_t row = 0; row < rows_; ++row) make_bars_of_row(marks, row);
    }

private:
    void make_bars_of_row(PlotMarks& marks, std::size_t row) {
        std::size_t begin = 0;
        for (std::size_t at = 1; at <= columns_; ++at) {
            const bool is_alike =
                at < columns_ && shade(cell(row, at), marks.most) == shade(cell(row, begin), marks.most);
            if (is_alike) continue;
            add_bar(marks, row, begin, at);
            begin = at;
        }
    }

    static std::size_t row_count(const Plot& plot) {
        const double keys =
            plot.kind == PlotKind::ROLL ? std::round(plot.scale.high - plot.scale.low) : HUGE_VAL;
        const double most = plot.kind == PlotKind::STROKES ? 1 : std::floor(plot.height / LEAST_CELL_HEIGHT);
        return static_cast<std::size_t>(std::max(1.0, std::min(keys, most)));
    }

    static int shade(std::int32_t count, std::uint32_t most) {
        if (count <= 0) return -1;
        if (most <= 1) return FULLEST;
        return shade_of_share(portable::log(count) / portable::log(most));
    }

    std::size_t column(double second) const {
        const double at = (layout_.time(second) - layout_.time.begin) / CELL_WIDTH;
        return static_cast<std::size_t>(std::clamp(at, 0.0, static_cast<double>(columns_ - 1)));
    }

    std::int32_t& cell(std::size_t row, std::size_t at) { return counts_[row * (columns_ + 1) + at]; }

    void add_bar(PlotMarks& marks, std::size_t row, std::size_t begin, std::size_t end) {
        const int found = shade(cell(row, begin), marks.most);
        if (found < 0) return;
        const double x = layout_.time.begin + static_cast<double>(begin) * CELL_WIDTH;
        const double right = layout_.time.begin + static_cast<double>(end) * CELL_WIDTH;
        const double y = plot_.top + (static_cast<double>(row) + 0.5) * row_height();
        marks.bars[static_cast<std::size_t>(found)].push_back({x, y, std::min(right, layout_.time.end) - x});
    }

    const Layout& layout_;
    const Plot& plot_;
    std::size_t columns_;
    std::size_t rows_;
    std::vector<std::int32_t> counts_;
};

void make_cells(PlotMarks& marks, const Layout& layout, const ScoreView& view, const Panel& panel,
                const Plot& plot) {
    Grid grid(layout, plot);
    for_each_value(view, panel, plot, [&](const BlockView&, const SeenEvent& event, double value) {
        if (std::isfinite(value)) grid.add(event, value);
    });
    grid.count();
    marks.most = static_cast<std::uint32_t>(std::max(0, grid.most()));
    marks.thickness = grid.row_height();
    grid.make_bars(marks);
}

}  // namespace

PlotMarks make_marks(const Layout& layout, const ScoreView& view, const Panel& panel, const Plot& plot) {
    PlotMarks marks;
    marks.thickness = thickness_of(plot);
    const double width = layout.time.end - layout.time.begin;
    marks.is_density = static_cast<double>(panel.events) > MOST_EVENTS_OF_PIXEL * width;
    if (marks.is_density) {
        make_cells(marks, layout, view, panel, plot);
    } else {
        make_bars(marks, layout, view, panel, plot);
    }
    return marks;
}

}  // namespace vorn::kit
