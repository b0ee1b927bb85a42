#include "kit/events/roles.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "blocks/command_codes.h"
#include "kit/run/logarithms.h"

// A value of a block is kept as the statement left it: pitches in semitones whatever
// their output type, amplitudes as they are. Only where neither input nor output type
// tells what a number is, its size does: keys lie below 128, frequencies above;
// 8.07 has an octave and a pitch class of two digits below 12.

namespace vorn::kit {

namespace {

constexpr double KEY_OF_LOWEST_C = 12;
constexpr double KEY_OF_A440 = 69;
constexpr float HIGHEST_KEY = 127;
constexpr float HIGHEST_VELOCITY = 127;
constexpr float HIGHEST_DECIBELS = 120;
constexpr double LARGEST_AMPLITUDE = 32768;
constexpr double LARGEST_DECIBELS = 90.31;  // of that amplitude above 1

bool is_one_of(int code, std::initializer_list<int> codes) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

bool has_pitch_output(const FieldRecord& field) {
    return is_one_of(field.output_type, {CODE_HZ, CODE_OP, CODE_OD, CODE_BN});
}

bool has_pitch_input(const FieldRecord& field) { return is_one_of(field.input_type, {CODE_NO, CODE_OP}); }

bool has_decibels(const FieldRecord& field) {
    return field.input_type == CODE_DB || field.output_type == CODE_DB;
}

template <typename Test>
const FieldRecord* find_field(const BlockRecord& block, Test test) {
    for (const FieldRecord& field : block.fields) {
        if (field.number >= 4 && test(field)) return &field;
    }
    return nullptr;
}

const FieldRecord* find_number(const BlockRecord& block, int number) {
    return find_field(block, [number](const FieldRecord& field) { return field.number == number; });
}

// Smallest and largest value of the sounding events; both 0 when there are none.
struct Range {
    float low = 0;
    float high = 0;
};

Range range_of(const BlockRecord& block, int pfield) {
    Range range;
    bool first = true;
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        const float value = block.value(row, pfield);
        if (block.events.duration[row] <= 0 || !std::isfinite(value)) continue;
        range = first ? Range{value, value} : Range{std::min(range.low, value), std::max(range.high, value)};
        first = false;
    }
    return range;
}

bool looks_like_pitch_class(float value) {
    const double hundredths = (value - std::floor(value)) * 100;
    return value >= 4 && value < 15 && hundredths < 11.9 &&
           std::fabs(hundredths - std::round(hundredths)) < 0.01;
}

bool are_pitch_classes(const BlockRecord& block, int pfield) {
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        if (block.events.duration[row] > 0 && !looks_like_pitch_class(block.value(row, pfield))) return false;
    }
    return block.events.size() > 0;
}

PitchUnit pitch_unit(const BlockRecord& block, const FieldRecord& field) {
    if (has_pitch_output(field) || has_pitch_input(field)) return PitchUnit::SEMITONES;
    if (are_pitch_classes(block, field.number)) return PitchUnit::OCTAVE_PITCH_CLASS;
    return range_of(block, field.number).high > HIGHEST_KEY ? PitchUnit::HERTZ : PitchUnit::KEY;
}

const FieldRecord* pitch_field(const BlockRecord& block, int wanted) {
    if (wanted != 0) return find_number(block, wanted);
    if (const FieldRecord* field = find_field(block, has_pitch_output)) return field;
    if (const FieldRecord* field = find_field(block, has_pitch_input)) return field;
    const FieldRecord* const fifth = find_number(block, 5);
    return fifth != nullptr ? fifth : find_number(block, 4);
}

// Amplitudes that `db` has made, and those that it will write, are amplitudes.
LevelRole level_role(const BlockRecord& block, const FieldRecord& field) {
    if (has_decibels(field)) return {field.number, LevelUnit::AMPLITUDE};
    const Range range = range_of(block, field.number);
    if (range.low >= 0 && range.high <= 1) return {field.number, LevelUnit::FRACTION};
    const bool may_be_velocity = range.low >= 0 && range.high <= HIGHEST_VELOCITY;
    return {field.number, range.high <= HIGHEST_DECIBELS ? LevelUnit::DECIBELS : LevelUnit::AMPLITUDE,
            may_be_velocity};
}

const FieldRecord* level_field(const BlockRecord& block, const WantedRoles& wanted) {
    if (wanted.level != 0) return find_number(block, wanted.level);
    if (const FieldRecord* field = find_field(block, has_decibels)) return field;
    const bool fourth_is_pitch = find_pitch(block, wanted).pfield == 4;
    return find_number(block, fourth_is_pitch ? 5 : 4);
}

}  // namespace

std::string reason_against(const ScoreRun& run, const WantedRoles& wanted) {
    for (const int number : {wanted.pitch, wanted.level}) {
        const bool is_had = number == 0 || run.blocks.empty() ||
                            std::any_of(run.blocks.begin(), run.blocks.end(), [&](const BlockRecord& block) {
                                return find_number(block, number) != nullptr;
                            });
        if (!is_had) return "no block of the score has a p" + std::to_string(number);
    }
    return {};
}

PitchRole find_pitch(const BlockRecord& block, const WantedRoles& wanted) {
    const FieldRecord* const field = pitch_field(block, wanted.pitch);
    return field == nullptr ? PitchRole{} : PitchRole{field->number, pitch_unit(block, *field)};
}

LevelRole find_level(const BlockRecord& block, const WantedRoles& wanted) {
    const FieldRecord* const field = level_field(block, wanted);
    return field == nullptr ? LevelRole{} : level_role(block, *field);
}

double to_key(const PitchRole& role, float value) {
    const double number = value;
    switch (role.unit) {
        case PitchUnit::SEMITONES:
            return number + KEY_OF_LOWEST_C;
        case PitchUnit::KEY:
            return number;
        case PitchUnit::HERTZ:
            return KEY_OF_A440 + 12 * logarithm_to_two(number / 440);
        case PitchUnit::OCTAVE_PITCH_CLASS:
            return (std::floor(number) - 3) * 12 + (number - std::floor(number)) * 100;
    }
    return number;
}

double to_decibels(const LevelRole& role, float value) {
    const double number = value;
    switch (role.unit) {
        case LevelUnit::AMPLITUDE:
            return as_decibels(number / LARGEST_AMPLITUDE);
        case LevelUnit::DECIBELS:
            return number > 0 ? number - LARGEST_DECIBELS : number;
        case LevelUnit::FRACTION:
            return as_decibels(number);
    }
    return number;
}

}  // namespace vorn::kit
