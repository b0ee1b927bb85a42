#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Words that are nearly right, and what they may have been meant to be.

namespace vorn::kit {

// Those of `names` that are nearest to the word, if they are near enough to be meant; upper and
// lower case are alike.
[[nodiscard]] std::vector<std::string> nearest(std::string_view word, const std::vector<std::string>& names);

// The names of a list that has them one behind the other, of two letters each.
[[nodiscard]] std::vector<std::string> two_letter_names(std::string_view list);

// What other programs call a command: "tempo" for "te". Empty: nothing is known.
[[nodiscard]] std::string_view command_called(std::string_view word);

// The decimal number that the whole word is, with or without an exponent.
[[nodiscard]] std::optional<double> number_in(std::string_view word);

// "`ra`", "`ra` or `rw`", "`ra`, `rd` or `rw`".
[[nodiscard]] std::string either(const std::vector<std::string>& names);

}  // namespace vorn::kit
