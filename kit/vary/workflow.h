#pragma once

#include <string>
#include <vector>

namespace vorn::kit {

// What a Snakemake workflow is told; all in UTF-8 and seen from the folder that it is run in.
struct Workflow {
    std::string folder;                  // of the variants
    std::vector<std::string> inputs;     // files that every variant is made from
    std::vector<std::string> arguments;  // of vornkit, for the whole of it
    unsigned first = 1;
    unsigned count = 1;
};

// The rules, the same for every score, and the file of settings that they read.
[[nodiscard]] std::string snakefile();
[[nodiscard]] std::string workflow_settings(const Workflow& workflow);

// Why a workflow cannot be written with these names; empty: it can.
[[nodiscard]] std::string workflow_hindrance(const Workflow& workflow);

}  // namespace vorn::kit
