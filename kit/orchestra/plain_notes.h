#pragma once

#include <vector>

#include "kit/events/roles.h"

// The sounding events of a score as every instrument understands them.

namespace vorn::kit {

struct PlainNote {
    std::size_t block = 0;  // index of ScoreRun::blocks
    double start = 0;       // as the score has it
    double duration = 0;    // above 0
    double frequency = 0;   // hertz
    double amplitude = 0;   // 1: full scale
};

// By block, in the order of their events. A block without a pitch sounds as middle c,
// one without a level 12 dB below the others' loudest. Levels keep their distances, but
// none lies more than 48 dB below the loudest, and all are moved together so that
// notes that sound at once fill the scale without clipping.
[[nodiscard]] std::vector<PlainNote> plain_notes(const ScoreRun& run, const WantedRoles& roles);

// The section of the score to which each block belongs, from 0: a line "> s" opens a new one,
// in which times begin again.
[[nodiscard]] std::vector<std::size_t> sections_of_blocks(const ScoreRun& run);

// The letter with which a line of a Csound score begins; 0 for an empty one.
[[nodiscard]] char score_letter(const std::string& line);

}  // namespace vorn::kit
