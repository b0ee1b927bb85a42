#include "kit/picture/picture.h"

#include <cmath>

#include "kit/picture/legend.h"
#include "kit/picture/marks.h"
#include "kit/picture/svg_writer.h"

// The layout is drawn from back to front: paper, lines of the axes, panels, legend.
// Every group says what it is, so that the picture can be read without being seen.

namespace vorn::kit {

namespace {

constexpr double BASELINE = 4;  // from the middle of a line of small text to its baseline
constexpr double TICK_LENGTH = 4;
constexpr double NAME_GAP = 6;  // between values and plots
constexpr double LINE_HEIGHT = 18;
constexpr double ODD_SIZE = 5;
constexpr double LEAST_KEY_HEIGHT = 3;  // of rows that the eye tells apart

std::string move_to(double x, double y) {
    std::string path = "M";
    append_coordinate(path, x);
    path += ' ';
    append_coordinate(path, y);
    return path;
}

std::string horizontal(double x, double y, double width) {
    std::string path = move_to(x, y) + "h";
    append_coordinate(path, width);
    return path;
}

std::string vertical(double x, double y, double height) {
    std::string path = move_to(x, y) + "v";
    append_coordinate(path, height);
    return path;
}

std::string attribute(const std::string& name, double value) {
    std::string text = " " + name + "=\"";
    append_coordinate(text, value);
    return text + "\"";
}

void draw_head(SvgWriter& svg, const Layout& layout) {
    const double room = layout.width - 2 * MARGIN;
    double y = MARGIN + TITLE_SIZE * 0.8;
    svg.text(MARGIN, y, "title ink", cut_to_width(layout.title, TITLE_SIZE * BOLD_WIDTH, room));
    y += SPACE;
    for (const std::string& facts : layout.facts) {
        y += LINE_HEIGHT;
        svg.text(MARGIN, y - BASELINE / 2, "text muted", facts);
    }
}

void draw_axis(SvgWriter& svg, const Layout& layout, const std::vector<Tick>& ticks, double y,
               bool is_above) {
    const double label_y = is_above ? y - TICK_LENGTH - BASELINE : y + TICK_LENGTH + LABEL_SIZE + 2;
    std::string path = horizontal(layout.time.begin, y, layout.time.end - layout.time.begin);
    for (const Tick& tick : ticks) path += vertical(tick.place, y, is_above ? -TICK_LENGTH : TICK_LENGTH);
    svg.path("border", "", path);
    svg.text(MARGIN, label_y, "label ink", is_above ? "beats" : "seconds");
    for (const Tick& tick : ticks) svg.text(tick.place, label_y, "label muted middle", tick.label);
}

void draw_grid(SvgWriter& svg, const Layout& layout, double top, double height) {
    std::string path;
    for (const Tick& tick : layout.seconds) path += vertical(tick.place, top, height);
    if (!path.empty()) svg.path("grid", "", path);
}

void draw_tempo(SvgWriter& svg, const Layout& layout) {
    const TempoLane& lane = layout.tempo;
    if (!lane.is_shown) return;
    svg.open_group("tempo", "Tempo in beats per minute");
    draw_grid(svg, layout, lane.top, lane.height);
    svg.text(MARGIN, lane.top + lane.height / 2 + BASELINE, "label ink", "tempo");
    const double right = layout.time.begin - NAME_GAP;
    svg.text(right, lane.top + lane.scale.end + BASELINE, "label muted end", short_number(lane.scale.high));
    svg.text(right, lane.top + lane.scale.begin + BASELINE, "label muted end", short_number(lane.scale.low));
    std::string path;
    const double step = (layout.time.end - layout.time.begin) / static_cast<double>(lane.tempos.size() - 1);
    for (std::size_t at = 0; at < lane.tempos.size(); ++at) {
        path += at == 0 ? "M" : "L";
        append_coordinate(path, layout.time.begin + static_cast<double>(at) * step);
        path += ' ';
        append_coordinate(path, lane.top + lane.scale(lane.tempos[at]));
    }
    svg.path("border", " stroke-width=\"1.5\"", path);
    svg.close_group();
}

std::string heading_of(const Panel& panel) { return "Instrument " + std::to_string(panel.instrument); }

std::string counts_of(const Panel& panel) {
    const std::string events = counted(panel.events, "event");
    return panel.rests > 0 ? events + ", " + counted(panel.rests, "rest") : events;
}

void draw_heading(SvgWriter& svg, const Panel& panel) {
    const std::string heading = heading_of(panel);
    const double y = panel.top + HEADING_SIZE;
    svg.text(MARGIN, y, "heading ink", heading);
    svg.text(MARGIN + text_width(heading, HEADING_SIZE) * BOLD_WIDTH + 2 * SPACE, y, "text muted",
             counts_of(panel));
}

// Of a label and what is left of the bracket behind it; the borders through the plots.
void draw_brackets(SvgWriter& svg, const Panel& panel) {
    std::string lines;
    std::string borders;
    for (const Bracket& bracket : panel.brackets) {
        const double middle = bracket.y + 8;
        const double label = bracket.label.empty() ? 0 : text_width(bracket.label, LABEL_SIZE) + SPACE;
        lines += vertical(bracket.begin, bracket.y + 3, 10);
        if (bracket.end > bracket.begin + label + SPACE) {
            lines += horizontal(bracket.begin + label, middle, bracket.end - bracket.begin - label);
            lines += vertical(bracket.end, bracket.y + 3, 10);
        }
        if (!bracket.label.empty()) {
            svg.text(bracket.begin + BASELINE, middle + BASELINE, "label muted", bracket.label);
        }
    }
    const double below = panel.plots.empty() ? panel.bottom : panel.plots.front().top;
    for (const double place : panel.borders) borders += vertical(place, below, panel.bottom - below);
    if (!lines.empty()) svg.path("border", "", lines);
    if (!borders.empty()) svg.path("border", " stroke-dasharray=\"1 3\"", borders);
}

void draw_names(SvgWriter& svg, const Layout& layout, const Plot& plot) {
    const double middle = plot.top + plot.height / 2 + BASELINE;
    const double name_y = plot.role.empty() || plot.kind == PlotKind::STROKES ? middle : middle - 7;
    const bool is_one_line = plot.is_constant || plot.role.empty();
    svg.text(MARGIN, is_one_line ? middle : name_y, "label ink", plot.name);
    if (!is_one_line) svg.text(MARGIN, name_y + 14, "label muted", plot.role);
    for (const Tick& tick : plot.ticks) {
        svg.text(layout.time.begin - NAME_GAP, plot.top + tick.place + BASELINE,
                 tick.is_strong ? "label ink end" : "label muted end", tick.label);
    }
}

// As on a keyboard, "cs", "ef", "fs", "af" and "bf" are darker, so that each row is known by its
// neighbours; a line lies below each c. Where keys are too narrow for that, it goes through the named ones.
void draw_keys(SvgWriter& svg, const Layout& layout, const Plot& plot, std::string& lines) {
    const double width = layout.time.end - layout.time.begin;
    const double key_height = plot.height / (plot.scale.high - plot.scale.low);
    if (key_height < LEAST_KEY_HEIGHT) {
        for (const Tick& tick : plot.ticks)
            lines += horizontal(layout.time.begin, plot.top + tick.place, width);
        return;
    }
    std::string band;
    const auto last = static_cast<std::int64_t>(std::floor(plot.scale.high));
    for (auto key = static_cast<std::int64_t>(std::ceil(plot.scale.low)); key <= last; ++key) {
        const double middle = plot.top + plot.scale(static_cast<double>(key));
        if (!is_natural(key)) band += horizontal(layout.time.begin, middle, width);
        if (key % 12 == 0) lines += horizontal(layout.time.begin, middle + key_height / 2, width);
    }
    if (!band.empty()) svg.path("band", attribute("stroke-width", key_height), band);
}

void draw_frame(SvgWriter& svg, const Layout& layout, const Plot& plot) {
    std::string lines;
    if (plot.kind == PlotKind::ROLL) draw_keys(svg, layout, plot, lines);
    draw_grid(svg, layout, plot.top, plot.height);
    lines += horizontal(layout.time.begin, plot.top + plot.height, layout.time.end - layout.time.begin);
    svg.path("grid", "", lines);
}

void draw_marks(SvgWriter& svg, const PlotMarks& marks, const Panel& panel, const Plot& plot) {
    const std::string color = "c" + std::to_string(panel.color) + " s";
    for (std::size_t shade = 0; shade < marks.bars.size(); ++shade) {
        std::string path;
        for (const Bar& bar : marks.bars[shade]) path += horizontal(bar.x, bar.y, bar.width);
        if (path.empty()) continue;
        svg.path(color + std::to_string(shade), attribute("stroke-width", marks.thickness), path);
    }
    std::string crosses;
    for (const double x : marks.odd) {
        crosses +=
            move_to(x - ODD_SIZE / 2, plot.top) + "l5 5" + move_to(x + ODD_SIZE / 2, plot.top) + "l-5 5";
    }
    if (!crosses.empty()) svg.path("odd", "", crosses);
}

std::string class_of(const Plot& plot) {
    if (plot.kind == PlotKind::ROLL) return "roll";
    return plot.kind == PlotKind::STROKES ? "strokes" : "lane";
}

void draw_panel(SvgWriter& svg, const Layout& layout, const ScoreView& view, const Panel& panel,
                LegendNeeds& needs) {
    svg.open_group("panel", heading_of(panel) + ": " + counts_of(panel));
    draw_heading(svg, panel);
    draw_brackets(svg, panel);
    for (const Plot& plot : panel.plots) {
        const PlotMarks marks = make_marks(layout, view, panel, plot);
        svg.open_group(class_of(plot), plot_label(plot));
        draw_frame(svg, layout, plot);
        draw_marks(svg, marks, panel, plot);
        draw_names(svg, layout, plot);
        svg.close_group();
        note_needs(needs, marks, plot);
    }
    svg.close_group();
}

std::string style_element(Theme theme) { return "<style>" + picture_rules(theme) + "</style>\n"; }

std::string open_element(const Layout& layout) {
    std::string element = "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"vorn\" role=\"img\"";
    element += " aria-labelledby=\"vorn-title vorn-description\"";
    element += attribute("width", layout.width) + attribute("height", layout.height) + " viewBox=\"0 0 ";
    append_coordinate(element, layout.width);
    element += ' ';
    append_coordinate(element, layout.height);
    return element + "\">\n";
}

}  // namespace

std::string picture_element(const ScoreRun& run, const PictureOptions& options) {
    const ScoreView view = view_score(run, options.view);
    Layout layout = lay_out(run, view, options);
    SvgWriter svg;
    draw_head(svg, layout);
    if (!layout.beats.empty()) draw_axis(svg, layout, layout.beats, layout.beats_y, true);
    draw_tempo(svg, layout);
    LegendNeeds needs;
    for (const Panel& panel : layout.panels) draw_panel(svg, layout, view, panel, needs);
    draw_axis(svg, layout, layout.seconds, layout.seconds_y, false);
    layout.height = draw_legend(svg, layout, needs) + MARGIN;
    SvgWriter whole;
    whole.raw(open_element(layout));
    whole.raw("<title id=\"vorn-title\">" + escape_markup(layout.title) + "</title>\n");
    whole.raw("<desc id=\"vorn-description\">" + escape_markup(description(layout)) + "</desc>\n");
    whole.raw(style_element(options.theme));
    whole.rectangle(0, 0, layout.width, layout.height, "paper");
    whole.raw(svg.take());
    whole.raw("</svg>\n");
    return whole.take();
}

std::string picture(const ScoreRun& run, const PictureOptions& options) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + picture_element(run, options);
}

}  // namespace vorn::kit
