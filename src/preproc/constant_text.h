#pragma once

#include <cstddef>
#include <cstdint>

// The text of a constant's value: whole part, ".", three decimals.

namespace vorn {

constexpr std::size_t CONSTANT_TEXT_SIZE = 384;  // the largest double has 309 digits before the point

// Writes the value's text, terminated, into CONSTANT_TEXT_SIZE bytes:
// 2.5 -> "2.500", -0.5 -> "-0.500", 12 -> "12.000".
void FtoA(char* text, double value);

// Decimal digits of n: 1 for 0; 0 for a negative number.
int CountDigits(std::int64_t n);

}  // namespace vorn
