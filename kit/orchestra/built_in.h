#pragma once

#include <string>

#include "kit/events/roles.h"

namespace vorn::kit {

// What Csound plays of a score that has no orchestra of its own.
struct BuiltIn {
    std::string orchestra;  // an instrument for each of the score's, by the order in which they come
    std::string score;      // the notes: frequency and amplitude, whatever the blocks have
};

// Lines "> t", "> s" and others that move times go with the notes; function tables and further
// instruments belong to an orchestra that is not there.
[[nodiscard]] BuiltIn built_in(const ScoreRun& run, const WantedRoles& roles);

}  // namespace vorn::kit
