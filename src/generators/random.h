#pragma once

#include <cstdint>

// The run's only source of random numbers: one global sequence, reseedable,
// with a fixed default seed, the same on every platform.

namespace vorn {

// The next number of the sequence, 0 to 2147483647.
std::int32_t rand();

// Restarts the sequence; seed 0 acts as 1, the default.
void srand(std::uint32_t seed);

// The unit draw: rand() rounded to single precision, times 2^-31. May be exactly 1.
float unit_draw();

void reset_random();

}  // namespace vorn
