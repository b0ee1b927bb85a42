#pragma once

#include <cstdint>

// Conversions from continuous pitch numbers: semitones above C0
// (16.35159783 Hz), 48 being middle C, and between amplitudes and decibels.

namespace vorn {

float cpc_to_pch(float pitch);  // octave.pitch-class, 8.00 is middle C
float cpc_to_oct(float pitch);  // octave.decimal
float cpc_to_hz(float pitch);   // hertz

// The bin of an analysis with 256 * 2^index points (index 0 to 7) at the given rate.
std::int32_t cpc_to_bin(std::int32_t index, float pitch, std::uint64_t sample_rate);

float amp_to_db(std::int32_t amplitude);        // 20 log10; 0 gives minus infinity
std::int32_t db_to_amp(std::int32_t decibels);  // cut to a whole amplitude
float st_to_tr(float semitones);                // transposition ratio

}  // namespace vorn
