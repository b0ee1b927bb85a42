#include "generators/deviation.h"

#include "generators/random.h"

// Random deviation of a value.
//
// The band is relative to the value, so 0 never deviates and a negative value
// deviates by the same proportion as a positive one; its whole width is
// dev * value, so that a deviation of 0.1 spreads a value over 5 % on either side.
// One number is drawn whatever the deviation: turning it on or off leaves
// the numbers that later draws see as they are.
//
// Example: add_rdev(100, 0.1) lies between 95 and 105.

namespace vorn {

float add_rdev(float value, float dev) {
    const float band = value * dev;
    const float offset = unit_draw() * band;
    return static_cast<float>(static_cast<double>(value) + offset - band / 2.0);
}

}  // namespace vorn
