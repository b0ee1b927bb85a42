#pragma once

#include <string>

// Numbers as texts, the same wherever the kit runs: as printf has them in the locale
// that a C program begins in, which nothing of the kit leaves. The library's own
// way to write a double would bring a hundred kilobytes of tables into a page.

namespace vorn::kit {

[[nodiscard]] std::string decimal_text(double value, int decimals);    // "0.50"
[[nodiscard]] std::string significant_text(double value, int digits);  // "1.2e+09"

// All digits that tell a double from its neighbours: "9.9989999999999998e+02".
[[nodiscard]] std::string scientific_text(double value);

// As few decimals as it takes to read the same value again: "0.001".
[[nodiscard]] std::string shortest_decimal_text(double value);

}  // namespace vorn::kit
