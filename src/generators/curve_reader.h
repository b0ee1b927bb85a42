#pragma once

#include "input/reader.h"

namespace vorn {

// [letter] ["*"]
// Reads a curve letter: "f" 0, "e" 1, "l" 2, "v" and an exponent above 0 3,
// "s" 4, "c" 5, any case; anything else is type 0 and consumes nothing.
// A "*", also behind blanks, adds BEAT_CURVE if allowed. The exponent is 1 for
// every type but 3. Returns 0, 63 (exponent) or 64 ("*" not allowed here).
[[nodiscard]] int get_curve_type(Reader& reader, float& curve_type, float& curve_value,
                                 bool beat_move_allowed);

}  // namespace vorn
