#include "generators/distributions.h"

#include <musl/portable_math.h>

#include <algorithm>

#include "generators/random.h"

// Seven distributions over a range, each made from unit draws u in [0, 1].
//
// The forms on the unit interval are narrowed to single precision and then laid
// over the range as low + (high - low) * form, so that a stand-alone form and
// mk_rval give the same numbers for the same draws.
//
//   flat          |########|     exponential low   |##=-    |
//   triangular    |  -##-  |     exponential high  |    -=##|
//   Gaussian      |   ##   |     bilateral         |   =#=  |
//   beta          |#-    -#|
//
// Example: with u = 0.5, distribution 0 over 60 to 72 yields 66.

namespace vorn {

namespace {

constexpr double DECAY = 6.9078F;  // ln 1000 to single precision: draws up to a thousandth map to 1
constexpr int GAUSSIAN_DRAWS = 12;
constexpr double GAUSSIAN_DEVIATION = 0.155;  // standard deviation, in widths of the range
constexpr double BILATERAL_DECAY = 14.0;
constexpr double BETA_EXPONENT = 5.0;  // the inverse of both shape parameters, 0.2

float draw_above_zero() {
    float u = unit_draw();
    while (u == 0.0F) u = unit_draw();
    return u;
}

float flat(float low, float span) { return low + span * UNIT * static_cast<float>(rand()); }

float triangular(float low, float span) {
    const float first = unit_draw();
    const float second = unit_draw();
    return static_cast<float>(low + span * ((first + second) * 0.5));
}

}  // namespace

// The exponential distribution by inversion of its distribution function.
float expone_left() {
    return static_cast<float>(std::min(1.0, portable::log(static_cast<double>(draw_above_zero())) / -DECAY));
}

// The normal distribution as a sum of twelve uniform draws, whose mean is 6 and
// whose standard deviation is 1. The ends gather what lies beyond them.
float gauss() {
    float sum = 0.0F;
    for (int i = 0; i < GAUSSIAN_DRAWS; ++i) sum += unit_draw();
    return static_cast<float>(std::clamp((sum - 6.0) * GAUSSIAN_DEVIATION + 0.5, 0.0, 1.0));
}

// Laplace's distribution by inversion, folded at the middle draw.
float bilex() {
    float x = 2.0F * unit_draw();
    while (x == 0.0F || x == 2.0F) x = 2.0F * unit_draw();
    const double sign = x > 1.0F ? -1.0 : 1.0;
    if (x > 1.0F) x = 2.0F - x;
    const double value = portable::log(static_cast<double>(x)) * sign / BILATERAL_DECAY;
    return static_cast<float>(std::clamp(value, -0.5, 0.5) + 0.5);
}

// The beta distribution by rejection (M. D. Jöhnk, 1964).
float beta() {
    while (true) {
        const double first = portable::pow(draw_above_zero(), BETA_EXPONENT);
        const double second = portable::pow(draw_above_zero(), BETA_EXPONENT);
        if (first + second <= 1.0) return static_cast<float>(first / (first + second));
    }
}

float mk_rval(std::uint32_t code, float low, float high) {
    const float span = high - low;
    switch (code) {
        case 0:
            return flat(low, span);
        case 1:
            return low + span * expone_left();
        case 2:
            return low + span * (1.0F - expone_left());
        case 3:
            return triangular(low, span);
        case 4:
            return low + span * gauss();
        case 5:
            return low + span * bilex();
        case 6:
            return low + span * beta();
        default:
            return 0.0F;
    }
}

}  // namespace vorn
