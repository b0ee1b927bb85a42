#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace vorn::kit {

// Of an option that names a p-field: "p4" or "4", up to p128.
[[nodiscard]] CLI::Validator pfield_name();

// Lets an option take one of these words, and its help show them.
void take_one_of(CLI::Option* option, const std::vector<std::string>& words);

// Of an option that is a number between two; what is not finite is none.
[[nodiscard]] CLI::Validator number_between(double low, double high);

}  // namespace vorn::kit
