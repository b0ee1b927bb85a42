#include "generators/curves.h"

#include <musl/portable_math.h>

#include <cmath>
#include <numbers>

// Interpolation between two values along a curve.
//
// A curve is a shape c(x) with c(0) = 0 and c(1) = 1, x being the share of the
// way that is done; the value is start + (end - start) * c(x). The difference is
// taken in single precision, the shape and the sum in double precision.
//
// The two routines differ in how x is measured (events or time), and in what a
// code above 5 gives, which no reader produces.
//
// Example: from 60 to 120 along curve 2, half of the way gives 60 + 60 * sqrt(0.5).

namespace vorn {

namespace {

constexpr std::uint32_t LAST_CURVE = 5;

// c(x) for a curve up to LAST_CURVE and x in [0, 1].
double shape(std::uint32_t curve, double x, float exponent) {
    switch (curve) {
        case 1:
            return x * x;
        case 2:
            return std::sqrt(x);
        case 3:
            return portable::pow(x, static_cast<double>(exponent));
        case 4:
            return portable::sin(std::numbers::pi / 2 * x);
        case 5:
            return x - (portable::sin(std::numbers::pi / 2 * x) - x);
        default:
            return x;
    }
}

float value_at(std::uint32_t curve, double x, float start, float end, float exponent) {
    return static_cast<float>(start + (end - start) * shape(curve, x, exponent));
}

}  // namespace

float pplot_val(std::uint64_t index, std::uint64_t count, std::uint32_t curve, float start, float end,
                float exponent) {
    if (count == 1) return start;
    if (index > count - 1) return end;
    if (curve > LAST_CURVE) return start;  // kept on purpose: tplot_val gives end
    // The sum could miss the end by a rounding; the last event meets it exactly.
    if (index == count - 1) return end;
    const double x = static_cast<double>(index) / static_cast<double>(count - 1);
    return value_at(curve, x, start, end, exponent);
}

float tplot_val(std::uint32_t curve, float t, float span, float start, float end, float exponent) {
    if (t >= span) return end;
    if (t <= 0.0F) return start;
    if (curve > LAST_CURVE) return end;  // kept on purpose: pplot_val gives start
    const double x = static_cast<double>(t) / span;
    return value_at(curve, x, start, end, exponent);
}

}  // namespace vorn
