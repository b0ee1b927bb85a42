#pragma once

#include <musl/portable_math.h>
#include <cstdlib>
#include <numbers>
#include <string>

#include "kit/run/decimal_text.h"

// Logarithms and powers whose every bit is the same on every machine, since what is
// computed with them is written into files.

namespace vorn::kit {

[[nodiscard]] inline double power_of_two(double exponent) { return portable::pow(2, exponent); }
[[nodiscard]] inline double power_of_ten(double exponent) { return portable::pow(10, exponent); }
[[nodiscard]] inline double logarithm_to_two(double number) {
    return portable::log(number) / std::numbers::ln2;
}

// Of an amplitude, 1 being 0 decibels.
[[nodiscard]] inline double as_decibels(double amplitude) {
    return 20 * (portable::log(amplitude) / std::numbers::ln10);
}

// The power of ten of the first digit of a number above 0: 3 for 1000, 2 for 999.9, -1 for 0.1.
[[nodiscard]] inline int decimal_exponent(double number) {
    const std::string written = scientific_text(number);
    return std::atoi(written.c_str() + written.find('e') + 1);
}

}  // namespace vorn::kit
