#include "kit/midi/velocity.h"

#include <algorithm>
#include <cmath>

#include "kit/run/logarithms.h"

// All blocks are looked through first: one scale holds for the whole score, so that what is
// louder in one block than in another stays louder.

namespace vorn::kit {

namespace {

constexpr double HIGHEST = 127;
constexpr double DEFAULT_VELOCITY = 96;  // of blocks without a level
constexpr double DECIBELS_PER_DECADE = 40;

std::string as_text(double value) { return std::to_string(static_cast<long long>(std::round(value))); }

}  // namespace

VelocityScale::VelocityScale(const ScoreRun& run, const WantedRoles& roles) {
    double amplitude = 0;
    double loudest = -INFINITY;
    for (const BlockRecord& block : run.blocks) {
        const LevelRole role = find_level(block, roles);
        if (role.pfield == 0) continue;
        for (std::size_t row = 0; row < block.events.size(); ++row) {
            const double value = block.value(row, role.pfield);
            if (block.events.duration[row] <= 0 || !std::isfinite(value)) continue;
            if (role.unit == LevelUnit::AMPLITUDE) amplitude = std::max(amplitude, value);
            if (role.unit == LevelUnit::DECIBELS) loudest = std::max(loudest, value);
        }
    }
    if (amplitude > largest_amplitude_) {
        largest_amplitude_ = amplitude;
        remark_ = "velocities are scaled so that the amplitude " + as_text(amplitude) + " is 127";
    }
    if (loudest > -INFINITY) {
        loudest_ = loudest;
        remark_ = "velocities are scaled so that " + as_text(loudest) + " decibels are 127";
    }
}

std::uint8_t VelocityScale::velocity(const LevelRole& role, float value) const {
    double velocity = DEFAULT_VELOCITY;
    if (role.pfield != 0) {
        const double number = value;
        velocity = role.unit == LevelUnit::AMPLITUDE ? HIGHEST * number / largest_amplitude_
                   : role.unit == LevelUnit::FRACTION
                       ? HIGHEST * number
                       : HIGHEST * power_of_ten((number - loudest_) / DECIBELS_PER_DECADE);
    }
    if (!(velocity >= 1)) return 1;  // 0 would be a note's end
    return static_cast<std::uint8_t>(std::min(std::round(velocity), HIGHEST));
}

}  // namespace vorn::kit
