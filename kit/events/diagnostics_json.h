#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "kit/diagnose/diagnostic.h"

namespace vorn::kit {

// An array, an object for each diagnostic: level, code, text, file, line, column, advice, repeats.
[[nodiscard]] nlohmann::ordered_json diagnostics_json(const std::vector<Diagnostic>& diagnostics,
                                                      const SourceMap& map);

}  // namespace vorn::kit
