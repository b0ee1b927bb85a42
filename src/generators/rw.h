#pragma once

#include <cstdint>

#include "generators/ddf_data.h"
#include "input/growing_array.h"

namespace vorn {

struct WalkRange {
    float low;
    float high;
    float window;    // width of a step, 0 to 1 of the range
    float position;  // of the walk, 0 to 1 of the range; moves with every event
};

// RW: a random walk inside a range.
struct RwData : DdfData {
    GrowingArray<WalkRange> range;
};

// "(" time { weight ["["] low high ["]"] window start } ")"
// Errors of the time, 38, 50, 51, 52, 32.
[[nodiscard]] int get_RW_data(RwData& data, Reader& reader);

[[nodiscard]] int make_RW(RwData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
