#pragma once

#include <cstddef>

#include "kit/run/score_run.h"

namespace vorn::kit {

// Puts into the engine's tempo map what it held when a block was read, for one
// block after the other; the engine's routines then answer for that block.
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

}  // namespace vorn::kit
