#pragma once

#include <string>

#include "kit/run/score_run.h"

// Which p-field of a block says how high and which says how loud, and in what unit.
// Pictures, MIDI files and the built-in orchestra read scores through it.

namespace vorn::kit {

enum class PitchUnit {
    SEMITONES,  // above the lowest c, 48 is middle c: note names, octave.pitch-class, "hz" output ...
    KEY,        // MIDI key number, 60 is middle c
    HERTZ,      // frequency given as a number
    OCTAVE_PITCH_CLASS,  // 8.00 given as a number
};

enum class LevelUnit { AMPLITUDE, DECIBELS, FRACTION };  // 0 to 32767; dB; 0 to 1

struct PitchRole {
    int pfield = 0;  // 0: the block has none
    PitchUnit unit = PitchUnit::KEY;
};

struct LevelRole {
    int pfield = 0;  // 0: the block has none
    LevelUnit unit = LevelUnit::AMPLITUDE;
    bool may_be_velocity = false;  // numbers without decibels, of the range of velocities
};

// P-fields that somebody asked for; 0: to be found.
struct WantedRoles {
    int pitch = 0;
    int level = 0;
};

// Why they cannot be had: no block has such a p-field. Empty where they can, and of a
// score without blocks.
[[nodiscard]] std::string reason_against(const ScoreRun& run, const WantedRoles& wanted);

// The p-field with a pitch as output type, else with pitch as input, else P5, else P4.
[[nodiscard]] PitchRole find_pitch(const BlockRecord& block, const WantedRoles& wanted = {});

// The p-field with decibels, else P4, or P5 where P4 is the pitch.
[[nodiscard]] LevelRole find_level(const BlockRecord& block, const WantedRoles& wanted = {});

// MIDI key number, with fractions; 60 is middle c (261.63 hertz). Not finite when
// the value is no pitch.
[[nodiscard]] double to_key(const PitchRole& role, float value);

// Decibels, 0 for the largest amplitude; minus infinity for silence.
[[nodiscard]] double to_decibels(const LevelRole& role, float value);

}  // namespace vorn::kit
