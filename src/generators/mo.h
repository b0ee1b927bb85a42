#pragma once

#include <cstdint>

#include "generators/ddf_data.h"
#include "generators/value_range.h"
#include "input/growing_array.h"

namespace vorn {

struct Motion {
    std::uint32_t curve;  // code, with BEAT_CURVE for a curve over time
    float exponent;       // of curve 3, else 1
    ValueRange start;
    ValueRange end;
};

// MO: from a start value to an end value along a curve.
struct MoData : DdfData {
    GrowingArray<Motion> motion;
};

// "(" time { weight [curve] range range } ")"
// Errors of the time, the curve and the ranges, 38, 72, 32.
[[nodiscard]] int get_MO_data(MoData& data, Reader& reader);

[[nodiscard]] int make_MO(MoData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
