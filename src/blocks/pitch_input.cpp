#include "blocks/pitch_input.h"

#include <cstdlib>
#include <cstring>

#include "blocks/block_state.h"
#include "input/characters.h"
#include "input/numbers.h"
#include "input/run_flags.h"
#include "output/pitch_conversion.h"

// Pitches, rhythms and levels as composers write them.
//
// Each reader turns one notation into the number that the rest of the program
// computes with: semitones with c4 = 48, beats, or an amplitude.
//
//     bf3      46       note name: letter, accidentals, octave
//     8.07     55       octave.pitch-class
//     4.,8     2        rhythm value: dotted quarter tied to an eighth
//     60       999      decibels
//
// A note name without an octave takes the last octave written anywhere before
// it in the run, so a melody names its octave once. When the output is a MIDI
// file every pitch is an octave higher (c4 = 60) from the moment it is read.

namespace vorn {

namespace {

constexpr std::int32_t FIRST_OCTAVE = 4;
constexpr std::int32_t HIGHEST_OCTAVE = 9;
constexpr int OCTAVE = 12;       // semitones
constexpr int MIDI_OFFSET = 12;  // middle C is 60 there
constexpr float REST = -1.0F;    // the value of "r"
constexpr float HIGHEST_DB = 96.0F;

// Semitones above c of the seven letters from "a" on.
constexpr float PITCH_CLASS[] = {9, 11, 0, 2, 4, 5, 7};

bool is_one_of(const char* lower_case_letters, char c) {
    return c != 0 && std::strchr(lower_case_letters, to_lower(c)) != nullptr;
}

struct Accidental {
    char mark;  // lower case only: kept on purpose
    float change;
    bool quarter_tone;  // only where NX allows it
};

constexpr Accidental ACCIDENTALS[] = {
    {'s', 1.0F, false}, {'f', -1.0F, false}, {'n', 0.0F, false}, {'+', 0.5F, true}, {'-', -0.5F, true},
};

// The row of a character that is an accidental, or null.
const Accidental* find_accidental(char c) {
    for (const Accidental& accidental : ACCIDENTALS) {
        if (accidental.mark == c) return &accidental;
    }
    return nullptr;
}

// accidental*
// Adds each to the pitch. False on a quarter-tone that NX does not allow.
bool add_accidentals(float& pitch, const char* text, std::int32_t& pos) {
    while (const Accidental* accidental = find_accidental(text[pos])) {
        if (accidental->quarter_tone && NX == 0) return false;
        pitch += accidental->change;
        ++pos;
    }
    return true;
}

// [octave]
// The digits replace the octave even when it is then refused: kept on purpose.
bool get_octave(const char* text, std::int32_t& pos) {
    if (is_digit(text[pos]) && !get_i(PITCH_OCTAVE, text, pos)) return false;
    return PITCH_OCTAVE <= HIGHEST_OCTAVE;
}

}  // namespace

std::int32_t PITCH_OCTAVE = FIRST_OCTAVE;

// letter accidental* [octave]
// "r"
bool get_pitch(float& value, const char* text, std::int32_t& pos) {
    const char letter = to_lower(text[pos]);
    if (letter == 'r') {
        value = REST;
        ++pos;
        return true;
    }
    if (letter < 'a' || letter > 'g') return false;
    ++pos;
    float pitch = PITCH_CLASS[letter - 'a'];
    if (!add_accidentals(pitch, text, pos) || !get_octave(text, pos)) return false;
    value = pitch + static_cast<float>(OCTAVE * PITCH_OCTAVE + (MKMIDI != 0 ? MIDI_OFFSET : 0));
    return true;
}

// [sign] octave "." [digits]
// The digits count as hundredths of a pitch class: "8.5" is fifty semitones
// above "8.00", not five. Kept on purpose.
bool get_oct_pc(float& value, const char* text, std::int32_t& pos) {
    std::int32_t octave = 0;
    float fraction = 0;
    if (!get_i(octave, text, pos) || text[pos] != '.' || !get_f(fraction, text, pos)) return false;
    const double from_c0 = OCTAVE * std::abs(octave) - 4 * OCTAVE + 100.0 * static_cast<double>(fraction);
    if (MKMIDI != 0) {
        value = static_cast<float>(from_c0 + MIDI_OFFSET);  // the octave's sign is dropped: kept on purpose
    } else {
        value = static_cast<float>(octave < 0 ? -from_c0 : from_c0);
    }
    return true;
}

// [sign] divisor "."* ["," rhythm value]
// The sign negates the whole, dots and ties included: kept on purpose.
bool get_rdc(float& value, const char* text, std::int32_t& pos) {
    std::int32_t divisor = 0;
    if (!is_digit(text[pos]) && text[pos] != '+' && text[pos] != '-') return false;
    if (!get_i(divisor, text, pos) || divisor == 0) return false;
    float addition = 4.0F / static_cast<float>(std::abs(divisor));
    float beats = addition;
    for (; text[pos] == '.'; ++pos) {
        addition /= 2.0F;
        beats += addition;
    }
    if (text[pos] == ',') {
        float tied = 0;
        if (!get_rdc(tied, text, ++pos)) return false;
        beats += tied;
    }
    value = divisor < 0 ? -beats : beats;
    return true;
}

bool get_db(float& value, const char* text, std::int32_t& pos) {
    float decibels = 0;
    if (!get_f(decibels, text, pos) || decibels < 0.0F || decibels > HIGHEST_DB) return false;
    value = static_cast<float>(db_to_amp(static_cast<std::int32_t>(decibels)));
    return true;
}

bool is_rrange_type(char c) { return is_one_of("bfghltx", c); }

bool is_gtoken(char c) { return is_one_of("rst#>", c); }

bool is_itoken(char c) { return is_one_of("dehimnoprsz{}~$", c); }

void reset_pitch_input() { PITCH_OCTAVE = FIRST_OCTAVE; }

}  // namespace vorn
