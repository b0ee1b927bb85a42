#pragma once

#include <cstdint>

#include "input/growing_array.h"
#include "input/reader.h"

namespace vorn {

// The weights of a function's sub-ranges, one each, in the order written.
struct Weights {
    GrowingArray<float> weight;  // fractions of 1
    GrowingArray<float> sum;     // running sums, filled by close_weights
};

// weight
// Appends one weight and moves behind the separators that follow it. On failure
// `bad_weight`, or error 32.
[[nodiscard]] int get_weight(Weights& weights, Reader& reader, int bad_weight);

// The only weight of a function that has no choice to make. Error 32.
[[nodiscard]] int set_single_weight(Weights& weights);

// After the last sub-range: error 42 unless the weights add up to 1; error 32.
[[nodiscard]] int close_weights(Weights& weights);

// Index of the sub-range of the next event. Draws one number, also when there
// is only one sub-range: kept on purpose.
std::uint32_t choose_sub_range(const Weights& weights);

}  // namespace vorn
