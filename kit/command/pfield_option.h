#pragma once

#include <CLI/CLI.hpp>

namespace vorn::kit {

// Of an option that names a p-field: "p4" or "4", up to p128.
[[nodiscard]] CLI::Validator pfield_name();

}  // namespace vorn::kit
