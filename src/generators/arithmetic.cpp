#include "generators/arithmetic.h"

#include <cfloat>
#include <cmath>
#include <limits>
#include <utility>

// Rounding and conversions whose result is defined for every value.
//
// Halves go up: x is rounded by comparing its distances to the whole numbers on
// either side, never by adding a half, which would carry 0.49999997 to 1.
// A conversion to an integer type gives the nearest end of the type for a value
// outside it and 0 for not-a-number, so that no score can reach the undefined
// conversions of the language.
//
// Example: Round(2.5) is 3, Round(-2.5) is -2, Round(1e12) is 2147483647.
//
// The library is compiled with one set of options, so what this source refuses is
// refused for all of it.

#if FLT_EVAL_METHOD != 0
#error "Scores would differ: float sums are kept in a wider type here (32-bit x86: -msse2 -mfpmath=sse)"
#endif
#if defined(__FAST_MATH__) || __FINITE_MATH_ONLY__ || __ASSOCIATIVE_MATH__ || __RECIPROCAL_MATH__
#error "Scores would differ: -ffast-math, -Ofast and their parts reorder sums and lose infinities"
#endif

namespace vorn {

namespace {

template <typename Integer>
Integer saturate(double x) {
    constexpr double LOWEST = static_cast<double>(std::numeric_limits<Integer>::min());
    // The highest value plus one is a power of two, which a double holds exactly.
    constexpr Integer HALFWAY = std::numeric_limits<Integer>::max() / 2 + 1;
    constexpr double BEYOND = static_cast<double>(HALFWAY) * 2;
    if (std::isnan(x)) return 0;
    if (x <= LOWEST) return std::numeric_limits<Integer>::min();
    if (x >= BEYOND) return std::numeric_limits<Integer>::max();
    return static_cast<Integer>(x);
}

}  // namespace

float RoundF(float x) {
    const float below = std::floor(x);
    const float above = std::ceil(x);
    return above - x > x - below ? below : above;
}

std::int32_t Round(float x) { return to_int32(RoundF(x)); }

float mod(float a, float b) {
    if (b == 0.0F) return 0.0F;
    // Adding zero turns a remainder of -0 into 0: a zero remainder has no sign.
    return std::fmod(a, std::fabs(b)) + 0.0F;
}

void swapf(float& a, float& b) { std::swap(a, b); }

std::int32_t to_int32(double x) { return saturate<std::int32_t>(x); }

std::uint64_t to_uint64(double x) { return saturate<std::uint64_t>(x); }

}  // namespace vorn
