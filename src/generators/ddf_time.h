#pragma once

#include "input/reader.h"

namespace vorn {

// "(" time
// where time is a number of beats, minus a number of events, or "T" ["*" fraction],
// the whole block or a part of it. pos rests behind the function's name on entry
// and on the first sub-range (or what separates it) on success. Errors 36, 40, 53.
[[nodiscard]] int get_dynfunc_dur(float& time, Reader& reader);

}  // namespace vorn
