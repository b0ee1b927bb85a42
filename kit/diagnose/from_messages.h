#pragma once

#include "kit/diagnose/diagnostic.h"

namespace vorn::kit {

// What the engine has said of a run, in the order in which it said it.
[[nodiscard]] std::vector<Diagnostic> from_messages(const ScoreRun& run);

}  // namespace vorn::kit
