#pragma once

#include <map>
#include <optional>

#include "kit/command/worker_processes.h"
#include "kit/vary/range.h"
#include "kit/vary/record.h"
#include "kit/vary/variation.h"

// One variant of a score in its folder: the Csound score, the picture, the sound, and
// last the record that says that they are whole.

namespace vorn::kit {

// What all variants of a score are made from.
struct VaryPlan {
    std::string score;  // its name
    bool relative = false;
    std::map<std::string, std::string> texts;  // of the score's files as they were at the beginning
    std::string varied_file;
    Variation variation;
    unsigned first = 1;
    unsigned count = 1;
    std::optional<Range> range;  // none: the seeds are the numbers
    std::string orchestra;       // empty: no sound
    std::string inputs;          // fingerprint of all of the above that a variant depends on
    std::string folder;          // of the variants
};

// What stands in the score for a number.
[[nodiscard]] std::string value_of(const VaryPlan& plan, unsigned number);

[[nodiscard]] ScoreRun run_variant(const VaryPlan& plan, unsigned number, const std::string& output);

// Why a run is no variant; empty: it is one.
[[nodiscard]] std::string refusal(const VaryPlan& plan, unsigned number, const ScoreRun& run);

[[nodiscard]] std::string folder_of(const VaryPlan& plan, unsigned number);

// The record of a variant that is whole and made from the same; otherwise nothing.
[[nodiscard]] std::optional<VariantRecord> finished_variant(const VaryPlan& plan, unsigned number);

// Makes it. REFUSED: by the score or by Csound, and the record says so; WRONG_USE: it
// could not be written.
[[nodiscard]] TaskResult make_variant(const VaryPlan& plan, unsigned number);

}  // namespace vorn::kit
