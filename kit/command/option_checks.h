#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace vorn::kit {

// Of an option that names a p-field: "p4" or "4", up to p128.
[[nodiscard]] CLI::Validator pfield_name();

// Of an option with a few words to choose from.
[[nodiscard]] CLI::Validator one_of(std::vector<std::string> words);

// Of an option that is a number between two; what is not finite is none.
[[nodiscard]] CLI::Validator number_between(double low, double high);

}  // namespace vorn::kit
