#pragma once

#include <string>
#include <vector>

#include "kit/events/roles.h"

namespace vorn::kit {

// From levels of any unit to the velocities 1 to 127.
//
// Whole numbers of their range are velocities already. Amplitudes are proportional to
// velocity, as `vorn -m` has it, where that makes all of them audible. Otherwise, and of
// decibels, the loudest is 127 and 40 decibels are a factor of ten, the curve of most
// synthesizers.
class VelocityScale {
public:
    VelocityScale(const ScoreRun& run, const WantedRoles& roles);

    std::uint8_t velocity(const LevelRole& role, float value) const;
    const std::vector<std::string>& remarks() const { return remarks_; }  // what was scaled by what

private:
    bool takes_velocities_ = false;  // whole numbers as they stand
    double loudest_amplitude_ = 0;   // 0: none was scaled
    double loudest_fraction_ = 0;    // likewise
    double loudest_decibels_ = 0;
    std::vector<std::string> remarks_;
};

}  // namespace vorn::kit
