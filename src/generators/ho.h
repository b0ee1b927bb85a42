#pragma once

#include <cstdint>

#include "generators/ddf_data.h"

namespace vorn {

// HO: one value held.
struct HoData : DdfData {
    float value = 0;
};

// "(" time value ")"
// Errors of the time, 52, 61, 32.
[[nodiscard]] int get_HO_data(HoData& data, Reader& reader);

[[nodiscard]] int make_HO(HoData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
