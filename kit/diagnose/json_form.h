#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kit/diagnose/diagnostic.h"

namespace vorn::kit {

// Diagnostics as data, an array in JSON; kit/schema/check.schema.json describes it.
// Lines and columns count from 1, columns in characters; offsets count bytes from 0. What
// is no UTF-8 becomes the replacement character.
[[nodiscard]] std::string json_diagnostics(const std::vector<Diagnostic>& diagnostics, const SourceMap& map);

// A score with its diagnostics, an object in JSON.
[[nodiscard]] std::string json_score(std::string_view name, bool is_accepted,
                                     const std::vector<Diagnostic>& diagnostics, const SourceMap& map);

// The whole of a check, from the objects of its scores.
[[nodiscard]] std::string json_report(const std::vector<std::string>& scores);

}  // namespace vorn::kit
