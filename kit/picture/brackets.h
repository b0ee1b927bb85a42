#pragma once

#include "kit/picture/layout.h"

namespace vorn::kit {

constexpr double BRACKET_HEIGHT = 16;

// The blocks of a panel in rows, from y on, so that neither they nor their labels
// cover each other while there is room. Returns the height of the rows.
[[nodiscard]] double place_brackets(Panel& panel, const Layout& layout, double y);

}  // namespace vorn::kit
