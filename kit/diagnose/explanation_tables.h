#pragma once

#include "kit/diagnose/explanation.h"

// The tables in which explanations are looked up, each by what its rows are about.

namespace vorn::kit {

[[nodiscard]] ExplanationTable block_explanations();
[[nodiscard]] ExplanationTable statement_explanations();
[[nodiscard]] ExplanationTable generator_explanations();
[[nodiscard]] ExplanationTable equation_explanations();
[[nodiscard]] ExplanationTable tempo_explanations();
[[nodiscard]] ExplanationTable macro_explanations();
[[nodiscard]] ExplanationTable constant_explanations();
[[nodiscard]] ExplanationTable condition_explanations();
[[nodiscard]] ExplanationTable unnumbered_explanations();
[[nodiscard]] ExplanationTable warning_explanations();
[[nodiscard]] ExplanationTable lint_explanations();

}  // namespace vorn::kit
