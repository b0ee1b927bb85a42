#pragma once

#include "kit/diagnose/fix.h"

namespace vorn::kit {

// The error that has ended the run; null when none has.
[[nodiscard]] const RunMessage* ending_error(const ScoreRun& run);

// Whether a run of the score with this fix gets beyond the error that has ended the run.
[[nodiscard]] bool cures(const Fix& fix, const ScoreRun& run);

}  // namespace vorn::kit
