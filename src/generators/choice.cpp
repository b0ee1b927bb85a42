#include "generators/choice.h"

#include "generators/random.h"

// The weighted choice: one unit draw is held against the running sums of the
// weights, and the first sum that is not below it names the sub-range. A draw
// equal to a sum belongs to the lower sub-range; a draw past the last sum, which
// rounding leaves possible, yields the count.
//
// Example: weights 0.25 0.25 0.5 and a draw of 0.25 choose sub-range 0; a draw
// of 0.6 chooses sub-range 2.

namespace vorn {

std::uint32_t prob_result(const float* weights, std::int32_t count) {
    const float u = unit_draw();
    if (count == 1) return 0;
    float sum = 0.0F;
    for (std::int32_t i = 0; i < count; ++i) {
        sum += weights[i];
        if (u <= sum) return static_cast<std::uint32_t>(i);
    }
    return static_cast<std::uint32_t>(count);
}

std::uint32_t choose_by_sums(const float* sums, std::int32_t count) {
    const float u = unit_draw();
    if (count == 1) return 0;
    std::int32_t chosen = 0;
    while (chosen < count && !(u <= sums[chosen])) ++chosen;
    return static_cast<std::uint32_t>(chosen);
}

void running_sums(const float* weights, float* sums, std::int32_t count) {
    float sum = 0.0F;
    for (std::int32_t i = 0; i < count; ++i) {
        sum += weights[i];
        sums[i] = sum;
    }
}

bool hundred_percent(const float* weights, std::int64_t count) {
    float sum = 0.0F;
    for (std::int64_t i = 0; i < count; ++i) sum += weights[i];
    const double total = sum;
    return 0.99999 < total && total < 1.00001;
}

}  // namespace vorn
