#include "generators/weights.h"

#include <algorithm>

#include "generators/choice.h"
#include "input/errors.h"
#include "input/numbers.h"
#include "input/skip.h"

// Which of a function's sub-ranges an event draws from.
//
// The running sums are made once per function; each event then costs one draw
// and a search. The sums may end a little below 1, so a draw may lie past the
// last one; it then belongs to the last sub-range.
//
//     weights .25 .25 .5    sums .25 .5 1    a draw of .25 chooses the first

namespace vorn {

int get_weight(Weights& weights, Reader& reader, int bad_weight) {
    float weight = 0;
    if (!get_f(weight, reader.text, reader.pos)) return bad_weight;
    if (!weights.weight.append(weight)) return error::OUT_OF_MEMORY;
    return skip_stuff(reader);
}

int set_single_weight(Weights& weights) { return weights.weight.append(1.0F) ? 0 : error::OUT_OF_MEMORY; }

int close_weights(Weights& weights) {
    const std::size_t count = weights.weight.size();
    if (!hundred_percent(weights.weight.data(), static_cast<std::int64_t>(count)))
        return error::BAD_WEIGHT_SUM;
    for (std::size_t i = 0; i < count; ++i) {
        if (!weights.sum.append(0.0F)) return error::OUT_OF_MEMORY;
    }
    running_sums(weights.weight.data(), weights.sum.data(), static_cast<std::int32_t>(count));
    return 0;
}

std::uint32_t choose_sub_range(const Weights& weights) {
    const auto count = static_cast<std::int32_t>(weights.sum.size());
    return std::min(choose_by_sums(weights.sum.data(), count), static_cast<std::uint32_t>(count - 1));
}

}  // namespace vorn
