#pragma once

#include <cstdint>

// The seven distributions by which a range of a data-defining function draws.

namespace vorn {

// One value of distribution `code` (0 flat, 1 exponential low, 2 exponential
// high, 3 triangular, 4 Gaussian, 5 bilateral exponential, 6 beta) between low
// and high. A code above 6 returns 0 without drawing.
float mk_rval(std::uint32_t code, float low, float high);

// The forms on the unit interval of distributions 1, 4, 5 and 6.
float expone_left();
float gauss();
float bilex();
float beta();

}  // namespace vorn
