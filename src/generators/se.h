#pragma once

#include <cstddef>
#include <cstdint>

#include "generators/ddf_data.h"
#include "generators/set_choice.h"
#include "input/growing_array.h"

namespace vorn {

// SE: elements of a set.
struct SeData : DdfData {
    GrowingArray<float> values;             // of all sets
    GrowingArray<std::size_t> first_value;  // per set
    SetChoices choices;                     // per set
};

// "(" time { weight ["*" | "x"] set } ")"
// Errors of the time and the sets, 38, 32. The sets are ready to be drawn from.
[[nodiscard]] int get_SE_data(SeData& data, Reader& reader);

[[nodiscard]] int make_SE(SeData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
