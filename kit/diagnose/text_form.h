#pragma once

#include <string>

#include "kit/diagnose/diagnostic.h"

namespace vorn::kit {

// How a stream wants its text.
struct TextStyle {
    bool colors = false;
    bool escapes = false;  // a terminal: control characters are shown, not sent
};

// A diagnostic as text for people, several lines, each with its line feed:
//
//     piece.vorn:5:4: error: Percentages must add up to 1.0. [E42]
//     p4 ra(T .5 60 .4 72)
//        ^^^^^^^^^^^^^^^^^
//     help: the weights add up to 0.9; 0.1 is missing
//
// Columns count characters from 1; tabs of the line stay under the marks.
[[nodiscard]] std::string text_form(const Diagnostic& diagnostic, const SourceMap& map,
                                    const TextStyle& style = {});

}  // namespace vorn::kit
