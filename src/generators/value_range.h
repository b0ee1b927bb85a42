#pragma once

#include <cstdint>

#include "generators/distributions.h"
#include "input/reader.h"

namespace vorn {

// A range that a value is drawn from.
struct ValueRange {
    std::uint32_t distribution;  // code, 0 to 6
    float low;
    float high;  // equal to low for a single value
};

// value
// "[" [letter] value [value] "]"
// Values in the input type; two are put in ascending order. A plain value is a
// flat range of no width. pos rests behind the value or "]". Errors 37, 39, 41.
[[nodiscard]] int get_value_range(ValueRange& range, Reader& reader);

// [letter]
// The code of a distribution letter, which is consumed; 0 and nothing consumed for anything else.
std::uint32_t get_rrange_type(const char* text, std::int32_t& pos);

// Whether the range ends at 0 exactly while a P2 function of `time` counts
// beats: such a function might never get on.
bool stops_time(const ValueRange& range, float time);

inline float draw_value(const ValueRange& range) {
    return mk_rval(range.distribution, range.low, range.high);
}

}  // namespace vorn
