#pragma once

#include <cstddef>

#include "kit/run/score_run.h"

namespace vorn::kit {

// Writes into the engine's tempo map what it held when block `index` was read; its
// routines then answer for that block.
void restore_tempo_map(const ScoreRun& run, std::size_t index);

// Whether the map knows more than one tempo.
[[nodiscard]] bool tempo_moves();

}  // namespace vorn::kit
