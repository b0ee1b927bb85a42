#pragma once

#include <cstdint>

#include "generators/ddf_data.h"
#include "generators/value_range.h"
#include "input/growing_array.h"

namespace vorn {

// RA: every event draws anew from a range.
struct RaData : DdfData {
    GrowingArray<ValueRange> range;
};

// "(" time { weight range } ")"
// Errors of the time and the ranges, 38, 72, 32.
[[nodiscard]] int get_RA_data(RaData& data, Reader& reader);

[[nodiscard]] int make_RA(RaData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
