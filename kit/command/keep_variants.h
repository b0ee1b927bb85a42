#pragma once

#include "kit/command/variant.h"

namespace vorn::kit {

// Writes the scores of these variants, "piece-17.vorn" for 17, into `folder`, or beside the
// score when it is empty. Nothing of them differs from the score but the value; where the
// value stands in an included file, the includes are put in their places. A file
// that is there and says something else stays.
[[nodiscard]] Outcome keep_variants(const VaryPlan& plan, const std::vector<unsigned>& numbers,
                                    const std::string& folder);

}  // namespace vorn::kit
