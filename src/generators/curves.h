#pragma once

#include <cstdint>

// Interpolation curves: 0 straight, 1 x^2, 2 x^0.5, 3 x^exponent, 4 sin(x pi/2),
// 5 2x - sin(x pi/2). Readers add BEAT_CURVE to a code for a curve over time.

namespace vorn {

constexpr int BEAT_CURVE = 100;

// The curve's value at event `index` of `count`: start at index 0, end at
// count - 1. A count of 1 and a code above 5 give start.
float pplot_val(std::uint64_t index, std::uint64_t count, std::uint32_t curve, float start, float end,
                float exponent);

// The curve's value at time t of span: end from span on, start up to 0.
// A code above 5 gives end.
float tplot_val(std::uint32_t curve, float t, float span, float start, float end, float exponent);

}  // namespace vorn
