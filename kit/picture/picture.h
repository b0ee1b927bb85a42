#pragma once

#include "kit/picture/layout.h"

namespace vorn::kit {

// A run as an SVG document that stands on its own.
[[nodiscard]] std::string picture(const ScoreRun& run, const PictureOptions& options);

// The same as an element of an HTML page.
[[nodiscard]] std::string picture_element(const ScoreRun& run, const PictureOptions& options);

}  // namespace vorn::kit
