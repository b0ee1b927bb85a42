#pragma once

#include <string>
#include <vector>

#include "kit/diagnose/explanation.h"

// Explanations as they are shown.

namespace vorn::kit {

// For people: the message, the cause, the score, the cure, the mended score.
[[nodiscard]] std::string explanation_text(const Explanation& explanation);

// A line a code, "E27  Data is out of bounds.", the codes as wide as the widest.
[[nodiscard]] std::string list_text(const std::vector<Explanation>& explanations);

// For programs: {"version": 1, "explanations": [{"code": "E27", "title": ...}, ...]}.
// What an explanation does not have is left out.
[[nodiscard]] std::string explanations_json(const std::vector<Explanation>& explanations);

}  // namespace vorn::kit
