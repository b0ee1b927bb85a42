#pragma once

#include <cstddef>
#include <vector>

#include "kit/run/score_run.h"

namespace vorn::kit {

// Puts into the engine's tempo map what it held when a block was read, for one
// block after the other; the engine's routines then answer for that block. Not
// during a run.
class TempoInForce {
public:
    explicit TempoInForce(const ScoreRun& run);

    void advance_to(std::size_t block);  // an index; not before that of the last call

private:
    const ScoreRun& run_;
    std::size_t next_ = 0;  // the first definition that is not in the map yet
};

// Whether the map knows more than one tempo.
[[nodiscard]] bool tempo_moves();

// The tempi, in beats per minute, that block `block` meets at the beats: those of the
// definitions that stand before it. Works on the engine's tempo map; not during a run.
[[nodiscard]] std::vector<float> tempos_at(const ScoreRun& run, std::size_t block,
                                           const std::vector<float>& beats);

}  // namespace vorn::kit
