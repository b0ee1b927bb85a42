#pragma once

#include "kit/picture/layout.h"

namespace vorn::kit {

// A page with the picture and a table of the blocks, which needs no other file.
[[nodiscard]] std::string picture_page(const ScoreRun& run, const PictureOptions& options);

}  // namespace vorn::kit
