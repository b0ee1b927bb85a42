#pragma once

#include <cstdint>

#include "input/growing_array.h"
#include "input/reader.h"

namespace vorn {

// value
// "[" value { value } "]"
// Appends the values, in the input type, to `values`; `size` is their number.
// pos rests behind the value or "]". Errors 39 (also for "[]"), 41, 32.
[[nodiscard]] int get_value_set(GrowingArray<float>& values, std::uint32_t& size, Reader& reader);

}  // namespace vorn
