#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kit/language/further_text.h"

// What is told of a code to who wants to know more than its message says: why it
// occurs, a score in which it does, what to write instead.
//
//     find_explanation("E27")->cause
//
// Numbered codes bear the engine's own words, which stand in its table alone; a
// code without a number brings its title along.

namespace vorn::kit {

struct Explanation {
    std::string_view code;        // "E27", "W10", "Einclude", "L1"
    FurtherText title = {};       // empty: the engine's words for the number
    FurtherText cause;            // what is wrong and what probably happened
    std::string_view cure;        // what to write; empty for a reserved number
    FurtherText score = {};       // a score that provokes the code; empty: none can, see `unprovoked`
    FurtherText cured = {};       // the same score without the mistake; of each that is shown
    FurtherText unprovoked = {};  // why no score shows it
};

using ExplanationTable = std::span<const Explanation>;

// The explanation of a code as code_in_full() writes it. A number that the engine keeps
// and nothing raises is explained as such; `code` must then outlive what is returned.
[[nodiscard]] std::optional<Explanation> find_explanation(std::string_view code);

// All but those: errors first, then warnings and lint, each kind by number and then by name.
[[nodiscard]] std::vector<Explanation> all_explanations();

// The message in a line: the engine's words for a number, the title otherwise.
[[nodiscard]] std::string title_of(const Explanation& explanation);

// A code as people type it, in the form of the tables: "e27", "27" and "[E27]" are "E27".
[[nodiscard]] std::string code_in_full(std::string_view typed);

// The few codes that come nearest to one that does not exist, by number or by letters.
[[nodiscard]] std::vector<std::string> nearest_codes(std::string_view code);

}  // namespace vorn::kit
