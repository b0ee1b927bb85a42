#pragma once

#include "input/messages.h"

// The tempo map: spans of beats over which the tempo moves along a curve.
// The table is searched in the order in which it was written.

namespace vorn {

constexpr int MAX_TEMPOS = 50;

struct TempoDef {
    float start_time;   // beat, 0 to 10000
    float start_tempo;  // beats per minute, 1 to 4000
    float end_time;     // beat
    float end_tempo;    // beats per minute
    float curve_type;   // 0 to 5
    float curve_value;  // exponent of type 3
};

extern TempoDef TEMPO_LIST[MAX_TEMPOS];
extern int TOT_TEMPOS;  // entries in use, 1 to MAX_TEMPOS
extern float TEMPO;     // beats per minute of the last conversion

// Seconds of a value in beats that starts at `beat`, the whole of it at the
// tempo of that beat. Sets TEMPO; with SHOW_TEMPOS prints the conversion.
float to_tempo(float beats, float beat);

// The tempo in force at a beat.
float find_tempo(float beat);

// Index of the definition in force at a beat.
int curtempo(float beat);

// Prints a warning (also under SUPRESS) for each definition that starts before
// the one written before it ends; returns TOT_TEMPOS.
int check_tempos(const MessagePlace& place = {});

bool good_tempo(float tempo);  // 1 to 4000
bool good_time(float time);    // 0 to 10000

void print_tempos();

void reset_tempo_map();

}  // namespace vorn
