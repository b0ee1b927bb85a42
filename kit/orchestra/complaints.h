#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kit/diagnose/diagnostic.h"

// What Csound printed while it performed a score.

namespace vorn::kit {

struct PerformanceReport {
    std::vector<Diagnostic> diagnostics;   // about blocks, each said once, in the order of their first event
    std::vector<std::string> other_lines;  // complaints about no block: the orchestra, files
    bool has_started = false;              // the orchestra was compiled and the score read
    bool has_ended = false;                // Csound came to its last lines
    bool lacks_device = false;             // there is nothing to play on
    bool disk_is_full = false;
    bool lacks_instruments = false;  // an event asked for one that the orchestra has not
    double peak = 0;                 // 1: full scale, may be above
    std::uint64_t clipped = 0;       // samples above full scale
};

// `output` is what Csound printed, with the messages that -m4 leaves.
[[nodiscard]] PerformanceReport read_performance(std::string_view output, const ScoreRun& run);

}  // namespace vorn::kit
