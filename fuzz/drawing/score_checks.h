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
// is whole, and no temporary file stays. With status 0 a score has its end, and it or the MIDI file holds as
// much as the messages tell. A valid score has status 0; without -m it also has a heading for each block that
// is not skipped, the right count of numbers in its lines, and outside blocks lines that are empty, begin
// with a blank or ";", or are the final "e". Lines, headings and their number are left alone where a score
// that is not valid could write text of its own that looks like them.
Verdict check_score(const DrawnScore& score);

}  // namespace vorn::fuzz
