#pragma once

#include <cstdint>

// Readers of the notations for pitches, rhythms and levels. All advance pos
// behind what they consume and return false when the text is not in their notation.

namespace vorn {

// Octave of the last note name that gave one, refused ones included; starts at 4
// and outlives events, p-fields and blocks. Written by get_pitch only.
extern std::int32_t PITCH_OCTAVE;

// Note name: letter or "r", accidentals, octave. Semitones, c4 = 48 (60 for MIDI); rest -1.
[[nodiscard]] bool get_pitch(float& value, const char* text, std::int32_t& pos);

// Octave.pitch-class: "8.00" is 48 (60 for MIDI).
[[nodiscard]] bool get_oct_pc(float& value, const char* text, std::int32_t& pos);

// Rhythm value: 4 / n beats, dots, "," ties.
[[nodiscard]] bool get_rdc(float& value, const char* text, std::int32_t& pos);

// Decibels 0 to 96, cut to whole ones, as an amplitude.
[[nodiscard]] bool get_db(float& value, const char* text, std::int32_t& pos);

bool is_rrange_type(char c);  // distribution letter of a random range
bool is_gtoken(char c);       // may begin a global command
bool is_itoken(char c);       // may begin an item of a block

void reset_pitch_input();

}  // namespace vorn
