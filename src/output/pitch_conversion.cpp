#include "output/pitch_conversion.h"

#include <musl/portable_math.h>

#include <cmath>

#include "generators/arithmetic.h"

// A pitch number is split into an octave and a pitch class of twelve semitones,
// and the notations put the two together again: 60 is octave 5 and class 0, one
// octave above middle C, and reads 9.00 in both notations.
//
// Both parts are cut towards zero, so below 0 the class is negative and -1
// reads 3.99: kept on purpose. The class is exact in single precision for every
// pitch; quotients, powers and products are formed in double precision and
// narrowed once, so middle C is 261.62558 hertz.

namespace vorn {

namespace {

constexpr double LOWEST_C = 16.35159783;              // hertz, pitch 0
constexpr double NEPERS_PER_DECIBEL = 0.11512925;     // ln(10) / 20
constexpr double RATIO_OF_SEMITONE = 1.059463094359;  // 2^(1/12)
constexpr int OCTAVE_OF_LOWEST_C = 4;                 // in both notations
constexpr float EXACT_LIMIT = 2147483648.0F;          // whole numbers below it fit 32 bits

struct SplitPitch {
    std::int32_t octave;  // above the lowest C
    float pitch_class;    // semitones, above -12 and below 12, with the sign of the pitch
};

SplitPitch split(float pitch) {
    const std::int32_t octave = to_int32(pitch) / 12;
    if (std::fabs(pitch) < EXACT_LIMIT) {
        return {octave, static_cast<float>(pitch - double{12} * octave)};
    }
    return {octave, std::fmod(pitch, 12.0F)};
}

double octave_point(float pitch, double classes) {
    const SplitPitch parts = split(pitch);
    return parts.octave + OCTAVE_OF_LOWEST_C + parts.pitch_class / classes;
}

double hertz(float pitch) {
    const SplitPitch parts = split(pitch);
    return portable::pow(2.0, parts.octave + parts.pitch_class / 12.0) * LOWEST_C;
}

}  // namespace

float cpc_to_pch(float pitch) { return static_cast<float>(octave_point(pitch, 100.0)); }

float cpc_to_oct(float pitch) { return static_cast<float>(octave_point(pitch, 12.0)); }

float cpc_to_hz(float pitch) { return static_cast<float>(hertz(pitch)); }

std::int32_t cpc_to_bin(std::int32_t index, float pitch, std::uint64_t sample_rate) {
    const double size = 256 << index;
    const double width = static_cast<double>(sample_rate) / size;
    return Round(static_cast<float>(hertz(pitch) / width));
}

float amp_to_db(std::int32_t amplitude) {
    return static_cast<float>(portable::log(static_cast<double>(amplitude)) / NEPERS_PER_DECIBEL);
}

std::int32_t db_to_amp(std::int32_t decibels) {
    return to_int32(portable::exp(decibels * NEPERS_PER_DECIBEL));
}

float st_to_tr(float semitones) {
    return static_cast<float>(portable::pow(RATIO_OF_SEMITONE, static_cast<double>(semitones)));
}

}  // namespace vorn
