#pragma once

#include "kit/command/variant.h"

// The folder of variants: whose it is, and what stands in it beside the variants.

namespace vorn::kit {

// What of the command line the sheet and a workflow repeat.
struct VaryWords {
    std::vector<std::string> choice;  // what the numbers of variants depend on: "--count", "9", "--set", ...
    std::vector<std::string> whole;   // all that says what is made
};

// Makes the folder, or takes one that is empty or was made for this. False, with the
// reason, when it holds something else or cannot be written.
[[nodiscard]] bool claim_folder(const VaryPlan& plan, std::string& reason);

// The page; the records of all variants that are finished are on it.
[[nodiscard]] bool write_sheet(const VaryPlan& plan, const VaryWords& words, std::string& reason);

[[nodiscard]] bool write_workflow(const VaryPlan& plan, const VaryWords& words, std::string& reason);

}  // namespace vorn::kit
