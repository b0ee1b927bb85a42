#pragma once

#include "kit/picture/marks.h"
#include "kit/picture/svg_writer.h"

// What the marks of a picture mean, in a legend for those who see it and in a
// description for those who do not.

namespace vorn::kit {

// What occurs and so must be explained.
struct LegendNeeds {
    bool has_bars = false;
    bool has_density = false;
    bool has_odd = false;
    std::uint32_t most = 0;  // events in the fullest cell
};

void note_needs(LegendNeeds& needs, const PlotMarks& marks, const Plot& plot);

// Draws it; returns the y of its lower end.
[[nodiscard]] double draw_legend(SvgWriter& svg, const Layout& layout, const LegendNeeds& needs);

// "P5, pitch, from c4 to g5"
[[nodiscard]] std::string plot_label(const Plot& plot);

[[nodiscard]] std::string description(const Layout& layout);

}  // namespace vorn::kit
