#pragma once

#include <string>
#include <vector>

#include "kit/diagnose/diagnostic.h"

// What is legal in a score and probably not meant.

namespace vorn::kit {

struct LintOptions {
    bool midi = false;                 // the score is meant for vorn -m
    std::vector<std::string> ignored;  // codes, "L1"
};

// What the rules find in a run, by place. A comment "; vornkit: ignore L1, L3" on a line
// silences these rules there. The engine's state serves as that of a reader meanwhile.
[[nodiscard]] std::vector<Diagnostic> lint(const ScoreRun& run, const LintOptions& options);

// What is said of a run, and what lint adds to it, by place; without a place at the end.
void add_lint(std::vector<Diagnostic>& diagnostics, const ScoreRun& run, const LintOptions& options);

// "L1" and so on.
[[nodiscard]] std::vector<std::string> lint_codes();

}  // namespace vorn::kit
