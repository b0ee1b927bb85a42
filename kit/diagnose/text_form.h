#pragma once

#include <string>

#include "kit/diagnose/diagnostic.h"

namespace vorn::kit {

// A diagnostic as text for people, several lines, each with its line feed:
//
//     piece.vorn:5:21: error: Percentages must add up to 1.0. [E42]
//     p4 ra(T .5 60 .4 72)
//                        ^
//
// Columns count characters from 1; tabs of the line stay under the marks.
[[nodiscard]] std::string text_form(const Diagnostic& diagnostic, const SourceMap& map);

}  // namespace vorn::kit
