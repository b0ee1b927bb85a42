#pragma once

#include <cstdint>

// Rounding, remainders and conversions that mean the same on every platform.

namespace vorn {

// The nearest whole number, halves up (2.5 -> 3, -2.5 -> -2); saturates, NaN is 0.
std::int32_t Round(float x);

// As Round with a float result; keeps the sign of zero, infinities and NaN.
float RoundF(float x);

// Remainder of a by |b| with the sign of a; 0 when b is 0.
float mod(float a, float b);

void swapf(float& a, float& b);

// Truncation towards zero; saturates at the ends of the type, NaN is 0.
std::int32_t to_int32(double x);
std::uint64_t to_uint64(double x);

}  // namespace vorn
