#pragma once

#include <string>

#include "kit/run/score_run.h"

namespace vorn::kit {

// A run as a small picture without a word: pitch over time, a colour an instrument.
// It fills its frame, from second 0 to the end and from the lowest to the highest key;
// who shows several gives each the part of a common frame that it covers.
struct Miniature {
    std::string svg;
    std::size_t events = 0;  // that sound
    double seconds = 0;
    double low = 0;  // MIDI key numbers at the lower and the upper edge
    double high = 0;
};

[[nodiscard]] Miniature miniature(const ScoreRun& run);

}  // namespace vorn::kit
