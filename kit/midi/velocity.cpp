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
constexpr double FULL_AMPLITUDE = 32767;
constexpr double FULL_FRACTION = 1;
constexpr double LOUD = 0.4;  // of the full level: the loudest of a score reaches it
constexpr double SOFT = 0.1;  // and all are above that

struct Range {
    double low = INFINITY;
    double high = -INFINITY;
    bool is_whole = true;

    void add(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
        is_whole = is_whole && value == std::floor(value);
    }
    void add(const Range& other) {
        low = std::min(low, other.low);
        high = std::max(high, other.high);
    }
};

// By unit; those that may be velocities stand apart.
struct Ranges {
    Range of_units[3];
    Range small[3];

    Range& of(LevelUnit unit) { return of_units[static_cast<std::size_t>(unit)]; }
    bool are_velocities() const {
        return std::all_of(std::begin(small), std::end(small),
                           [](const Range& range) { return range.is_whole; });
    }
    void add_small() {
        for (std::size_t unit = 0; unit < std::size(small); ++unit) of_units[unit].add(small[unit]);
    }
};

// Silence says nothing of how soft a sound is.
bool is_heard(const LevelRole& role, double value) {
    return std::isfinite(value) && (role.unit == LevelUnit::DECIBELS || value > 0);
}

Ranges ranges_of(const ScoreRun& run, const WantedRoles& roles) {
    Ranges ranges;
    for (const BlockRecord& block : run.blocks) {
        const LevelRole role = find_level(block, roles);
        if (role.pfield == 0) continue;
        Range& range =
            (role.may_be_velocity ? ranges.small : ranges.of_units)[static_cast<std::size_t>(role.unit)];
        for (std::size_t row = 0; row < block.events.size(); ++row) {
            const double value = block.value(row, role.pfield);
            if (block.events.duration[row] > 0 && is_heard(role, value)) range.add(value);
        }
    }
    return ranges;
}

bool is_audible(const Range& range, double full) {
    return range.high <= full && range.high >= LOUD * full && range.low >= SOFT * full;
}

// The level that 127 is to be, and 0 where the levels can be taken as they are.
double loudest_to_scale(const Range& range, double full) {
    return range.high > 0 && !is_audible(range, full) ? range.high : 0;
}

std::string as_text(double amplitude) {
    return amplitude >= 1000 ? decimal_text(amplitude, 0) : significant_text(amplitude, 3);
}

std::string remark_on(const std::string& loudest) {
    return "velocities are scaled so that " + loudest + " 127";
}

double scaled(double level, double loudest, double full) {
    return level <= 0 ? 0 : loudest == 0 ? HIGHEST * level / full : HIGHEST * std::sqrt(level / loudest);
}

}  // namespace

VelocityScale::VelocityScale(const ScoreRun& run, const WantedRoles& roles) {
    Ranges ranges = ranges_of(run, roles);
    takes_velocities_ = ranges.are_velocities();
    if (!takes_velocities_) ranges.add_small();
    loudest_amplitude_ = loudest_to_scale(ranges.of(LevelUnit::AMPLITUDE), FULL_AMPLITUDE);
    loudest_fraction_ = loudest_to_scale(ranges.of(LevelUnit::FRACTION), FULL_FRACTION);
    loudest_decibels_ = ranges.of(LevelUnit::DECIBELS).high;
    for (const double amplitude : {loudest_amplitude_, loudest_fraction_}) {
        if (amplitude > 0) remarks_.push_back(remark_on("the amplitude " + as_text(amplitude) + " is"));
    }
    if (std::isfinite(loudest_decibels_)) {
        remarks_.push_back(remark_on(significant_text(loudest_decibels_, 4) + " decibels are"));
    }
}

std::uint8_t VelocityScale::velocity(const LevelRole& role, float value) const {
    double velocity = DEFAULT_VELOCITY;
    if (role.pfield != 0) {
        const double number = value;
        velocity = takes_velocities_ && role.may_be_velocity ? number
                   : role.unit == LevelUnit::AMPLITUDE ? scaled(number, loudest_amplitude_, FULL_AMPLITUDE)
                   : role.unit == LevelUnit::FRACTION
                       ? scaled(number, loudest_fraction_, FULL_FRACTION)
                       : HIGHEST * power_of_ten((number - loudest_decibels_) / DECIBELS_PER_DECADE);
    }
    if (!(velocity >= 1)) return 1;  // 0 would be a note's end
    return static_cast<std::uint8_t>(std::min(std::round(velocity), HIGHEST));
}

}  // namespace vorn::kit
