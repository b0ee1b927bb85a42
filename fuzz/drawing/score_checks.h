#pragma once

#include <string>

#include "drawing/drawn_score.h"

namespace vorn::fuzz {

struct Verdict {
    std::string problem;       // empty when all is well
    bool out_of_room = false;  // error 32: a build with other limits would go on
};

// Runs the score twice in this process. Whatever the score, the status is 0 or 1, both runs say and leave the
// same bytes, every line of an instrument block is well formed, its heading has the next number, a MIDI file
// with status 0 is whole, and no temporary file stays. A valid score has status 0 and the right count of
// numbers in every line of a block; outside blocks its lines are empty, begin with a blank or ";", or are the
// final "e". The lines of a score that is not valid are left alone where its own text (">") could look like a
// block's.
Verdict check_score(const DrawnScore& score);

}  // namespace vorn::fuzz
