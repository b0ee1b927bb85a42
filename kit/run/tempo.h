#pragma once

#include <cstddef>
#include <vector>

#include "kit/run/score_run.h"

namespace vorn::kit {

// The tempi, in beats per minute, that block `block` meets at the beats: those of the
// definitions that stand before it. Works on the engine's tempo map; not during a run.
[[nodiscard]] std::vector<float> tempos_at(const ScoreRun& run, std::size_t block,
                                           const std::vector<float>& beats);

}  // namespace vorn::kit
