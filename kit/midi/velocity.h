#pragma once

#include <string>

#include "kit/events/roles.h"

namespace vorn::kit {

// From levels of any unit to the velocities 1 to 127.
//
// Amplitudes up to 32767 and fractions are proportional to velocity, as `vorn -m`
// has it; larger amplitudes are scaled by the largest. Of decibels the loudest is
// 127, and 40 of them are a factor of ten, the curve of most synthesizers.
class VelocityScale {
public:
    VelocityScale(const ScoreRun& run, const WantedRoles& roles);

    std::uint8_t velocity(const LevelRole& role, float value) const;
    const std::string& remark() const { return remark_; }  // what was scaled by what; empty: nothing

private:
    double largest_amplitude_ = 32767;
    double loudest_ = 0;  // decibels
    std::string remark_;
};

}  // namespace vorn::kit
