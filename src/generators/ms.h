#pragma once

#include <cstddef>
#include <cstdint>

#include "generators/ddf_data.h"
#include "input/growing_array.h"

namespace vorn {

// The fields of a mask stand in one row: exponent, set A, set B.
struct Mask {
    std::uint32_t curve;  // code, with BEAT_CURVE for a curve over time
    std::uint32_t size_a;
    std::uint32_t size_b;
    std::size_t first_field;  // of the exponent
};

// MS: from set A to set B.
struct MsData : DdfData {
    GrowingArray<float> fields;  // of all masks
    GrowingArray<Mask> mask;
};

// "(" time { weight [curve] set set } ")"
// Errors of the time, the curve and the sets, 38, 32.
[[nodiscard]] int get_MS_data(MsData& data, Reader& reader);

[[nodiscard]] int make_MS(MsData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
