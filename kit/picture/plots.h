#pragma once

#include "kit/picture/layout.h"

namespace vorn::kit {

// The plots of a panel, each with its scale from 0 (top) to its height, not yet placed.
[[nodiscard]] std::vector<Plot> make_plots(const ScoreView& view, const Panel& panel);

}  // namespace vorn::kit
