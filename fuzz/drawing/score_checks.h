#pragma once

#include <string>

#include "drawing/drawn_score.h"

namespace vorn::fuzz {

struct Verdict {
    std::string problem;       // empty when all is well
    bool out_of_room = false;  // error 32: a build with other limits would go on
};

// Runs the score twice in this process. Whatever the score, the status is 0 or 1,
// both runs say and leave the same bytes, every line of an instrument block is
// well formed, a MIDI file is whole, and no temporary file stays. A valid score
// has status 0, the right count of numbers in every line of a block, and outside blocks only its own text.
Verdict check_score(const DrawnScore& score);

}  // namespace vorn::fuzz
