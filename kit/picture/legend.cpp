#include "kit/picture/legend.h"

#include <algorithm>

// A legend names only what the picture has. Its entries follow each other and begin
// a new line where one does not fit.

namespace vorn::kit {

namespace {

constexpr double LINE_HEIGHT = 20;
constexpr double SYMBOL_WIDTH = 24;
constexpr double RAMP_STEP = 12;
constexpr double SYMBOL_HEIGHT = 8;

class LegendRow {
public:
    LegendRow(SvgWriter& svg, const Layout& layout)
        : svg_(svg), right_(layout.width - MARGIN), y_(layout.legend_top + LINE_HEIGHT) {}

    void entry(const std::string& text) { place(0, text); }

    void bar(const std::string& text) {
        place(SYMBOL_WIDTH, text);
        stroke(symbol_, SYMBOL_WIDTH - SPACE, SHADE_COUNT - 1);
    }

    void bracket(const std::string& text) {
        place(SYMBOL_WIDTH, text);
        const double middle = y_ - SYMBOL_HEIGHT / 2;
        svg_.line(symbol_, middle, symbol_ + SYMBOL_WIDTH - SPACE, middle, "border");
        for (const double x : {symbol_, symbol_ + SYMBOL_WIDTH - SPACE}) {
            svg_.line(x, middle - SYMBOL_HEIGHT / 2, x, middle + SYMBOL_HEIGHT / 2, "border");
        }
    }

    void ramp(const std::string& text) {
        place(RAMP_STEP * SHADE_COUNT + SPACE, text);
        for (int shade = 0; shade < SHADE_COUNT; ++shade)
            stroke(symbol_ + shade * RAMP_STEP, RAMP_STEP, shade);
    }

    double bottom() const { return y_; }

private:
    void place(double symbol_width, const std::string& text) {
        const double width = symbol_width + text_width(text, LABEL_SIZE);
        if (x_ > MARGIN && x_ + width > right_) {
            x_ = MARGIN;
            y_ += LINE_HEIGHT;
        }
        symbol_ = x_;
        svg_.text(x_ + symbol_width, y_, "label muted", text);
        x_ += width + 2 * SPACE;
    }

    void stroke(double x, double width, int shade) {
        std::string path = "M";
        append_coordinate(path, x);
        path += ' ';
        append_coordinate(path, y_ - SYMBOL_HEIGHT / 2);
        path += "h";
        append_coordinate(path, width);
        svg_.path("c0 s" + std::to_string(shade), " stroke-width=\"8\"", path);
    }

    SvgWriter& svg_;
    double right_;
    double x_ = MARGIN;
    double y_;
    double symbol_ = MARGIN;
};

bool has_rests(const Layout& layout) {
    return std::any_of(layout.panels.begin(), layout.panels.end(),
                       [](const Panel& panel) { return panel.rests > 0; });
}

std::string strangers_entry(std::size_t count) {
    return "beats follow the longest block, from which " + counted(count, "block") +
           (count == 1 ? " differs" : " differ");
}

}  // namespace

void note_needs(LegendNeeds& needs, const PlotMarks& marks, const Plot& plot) {
    const bool has_marks = std::any_of(marks.bars.begin(), marks.bars.end(),
                                       [](const std::vector<Bar>& bars) { return !bars.empty(); });
    needs.has_density = needs.has_density || (marks.is_density && has_marks);
    needs.has_bars = needs.has_bars || (!marks.is_density && has_marks);
    needs.has_odd = needs.has_odd || plot.not_finite > 0;
    needs.most = std::max(needs.most, marks.most);
}

double draw_legend(SvgWriter& svg, const Layout& layout, const LegendNeeds& needs) {
    svg.open_group("legend", "Legend");
    LegendRow row(svg, layout);
    if (needs.has_bars) row.bar("an event, from its start to its end");
    if (needs.has_bars && layout.highest_level > layout.lowest_level) row.ramp("level, from low to high");
    if (needs.has_density)
        row.ramp("events at once, from few to many, " + std::to_string(needs.most) + " at most");
    if (layout.panels.empty()) row.entry("no events");
    if (!layout.panels.empty()) row.bracket("a block, by the line of its header");
    if (has_rests(layout)) row.entry("gaps are rests");
    if (needs.has_odd) row.entry("\xC3\x97 a value that is infinite or no number");
    if (layout.strangers > 0) row.entry(strangers_entry(layout.strangers));
    svg.close_group();
    return row.bottom();
}

std::string plot_label(const Plot& plot) {
    std::string text = plot.name + (plot.role.empty() ? "" : ", " + plot.role);
    return plot.range.empty() ? text : text + ", " + plot.range;
}

std::string description(const Layout& layout) {
    std::string text;
    for (const std::string& facts : layout.facts) text += (text.empty() ? "" : ", ") + facts;
    for (const Panel& panel : layout.panels) {
        text += ". Instrument " + std::to_string(panel.instrument) + ": " + counted(panel.events, "event");
        for (const Plot& plot : panel.plots) text += "; " + plot_label(plot);
    }
    return text + ".";
}

}  // namespace vorn::kit
