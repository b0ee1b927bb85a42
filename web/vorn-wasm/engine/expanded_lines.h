#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kit/run/score_run.h"

namespace vorn::web {

// What a line of a file became after macros and constants, once for each time that it was
// read, up to a hundred times. Lines count from 1.
[[nodiscard]] std::vector<std::string> expanded_lines(const kit::ScoreRun& run, std::string_view file,
                                                      std::size_t line);

}  // namespace vorn::web
