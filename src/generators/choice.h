#pragma once

#include <cstdint>

// The weighted choice among the sub-ranges of a data-defining function.

namespace vorn {

// Index of the sub-range chosen by weight: the first whose running sum is not
// below one unit draw, or count when the draw lies past every sum. Always draws
// one number, also for a single sub-range.
std::uint32_t prob_result(const float* weights, std::int32_t count);

// The same choice from running sums computed once by running_sums.
std::uint32_t choose_by_sums(const float* sums, std::int32_t count);

// sums[i] = weights[0] + ... + weights[i] in single precision.
void running_sums(const float* weights, float* sums, std::int32_t count);

// Whether the weights add up to one: 0.99999 < sum < 1.00001.
bool hundred_percent(const float* weights, std::int64_t count);

}  // namespace vorn
