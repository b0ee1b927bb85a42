#pragma once

#include "input/reader.h"

namespace vorn {

// [letter] ["*"]
// Reads a curve letter: "f" 0, "e" 1, "l" 2, "v" and an exponent above 0 3,
// "s" 4, "c" 5, any case; anything else is type 0 and consumes nothing.
// A "*" adds BEAT_CURVE if allowed. The exponent is 1 for every type but 3.
// Leaves pos behind what skip_stuff takes after the curve, which may be nothing.
// Returns 0, 63 (exponent), 64 ("*" not allowed here) or an error of fetching a line.
[[nodiscard]] int get_curve_type(Reader& reader, float& curve_type, float& curve_value,
                                 bool beat_move_allowed);

}  // namespace vorn
