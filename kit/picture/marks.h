#pragma once

#include <array>
#include <cstdint>

#include "kit/picture/layout.h"

// What a plot draws: a bar for each event, or, where there are more of them than
// a reader can tell apart, cells that are the fuller the more events they hold.

namespace vorn::kit {

// A horizontal bar, its middle at height y.
struct Bar {
    double x = 0;
    double y = 0;
    double width = 0;
};

struct PlotMarks {
    bool is_density = false;
    double thickness = 2;
    std::array<std::vector<Bar>, SHADE_COUNT> bars;  // by shade, the fullest last
    std::vector<double> odd;                         // where a value is not finite
    std::uint32_t most = 0;                          // events in the fullest cell
};

// Events of a plot, for each pixel of its width, beyond which it shows density.
constexpr double MOST_EVENTS_OF_PIXEL = 3;

[[nodiscard]] PlotMarks make_marks(const Layout& layout, const ScoreView& view, const Panel& panel,
                                   const Plot& plot);

}  // namespace vorn::kit
