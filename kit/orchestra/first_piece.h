#pragma once

namespace vorn::kit {

// What a new piece begins with: a short score that explains itself, and its orchestra.
extern const char* const FIRST_SCORE;
extern const char* const FIRST_ORCHESTRA;

}  // namespace vorn::kit
