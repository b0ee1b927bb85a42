#include "output/tempo_map.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "generators/arithmetic.h"
#include "generators/curves.h"
#include "input/run_flags.h"

// Beats to seconds through a table of tempo definitions.
//
// Entry 0 always starts at beat 0, so there is a tempo at every beat. The
// table is not sorted: the search walks it as it was written and stops before
// the first entry that starts later, so an entry written behind that one is not
// found. A value is converted whole at the tempo of its first beat; nothing is
// integrated along the curve.
//
// Example: with entry 0 from beat 0 to 8, 60 to 120 along curve 0, a value of 1
// at beat 4 meets tempo 90 and lasts 0.667 seconds.

namespace vorn {

namespace {

constexpr float INITIAL_TEMPO = 60.0F;
constexpr float LOWEST_TEMPO = 1.0F;
constexpr float HIGHEST_TEMPO = 4000.0F;
constexpr float LAST_BEAT = 10000.0F;

// Kept on purpose: curve type 1 with the value 0, though its empty span shows neither.
constexpr TempoDef INITIAL_ENTRY = {
    .start_time = 0.0F,
    .start_tempo = INITIAL_TEMPO,
    .end_time = 0.0F,
    .end_tempo = INITIAL_TEMPO,
    .curve_type = 1.0F,
    .curve_value = 0.0F,
};

// The letters shown for the curve types. Kept on purpose: "U" and "X" are not
// the letters "v" and "c" that the tempo command reads.
constexpr char SHOWN_TYPES[] = "FELUSX";
constexpr int USER_CURVE = 3;

char shown_type(int curve) {
    return curve >= 0 && curve < static_cast<int>(std::size(SHOWN_TYPES)) - 1 ? SHOWN_TYPES[curve] : '?';
}

}  // namespace

TempoDef TEMPO_LIST[MAX_TEMPOS] = {INITIAL_ENTRY};
int TOT_TEMPOS = 1;
float TEMPO = INITIAL_TEMPO;

int curtempo(float beat) {
    int current = 0;
    while (current + 1 < TOT_TEMPOS && beat >= TEMPO_LIST[current].start_time &&
           !(TEMPO_LIST[current + 1].start_time > beat))
        ++current;
    return current;
}

float find_tempo(float beat) {
    const TempoDef& entry = TEMPO_LIST[curtempo(beat)];
    return tplot_val(static_cast<std::uint32_t>(to_int32(entry.curve_type)), beat - entry.start_time,
                     entry.end_time - entry.start_time, entry.start_tempo, entry.end_tempo,
                     entry.curve_value);
}

float to_tempo(float beats, float beat) {
    TEMPO = find_tempo(beat);
    const float seconds = static_cast<float>(60.0 / TEMPO * beats);
    if (SHOW_TEMPOS != 0)
        Mprintf("\n  > Beat %f Tempo = %f Val = %f (bts) %f (secs)", beat, TEMPO, beats, seconds);
    return seconds;
}

int check_tempos(const MessagePlace& place) {
    float previous_end = 0.0F;
    for (int k = 0; k < TOT_TEMPOS; ++k) {
        if (previous_end > TEMPO_LIST[k].start_time)
            print_warning(place, "\nWARNING: Tempo #%d conflicts with previous tempo's end time!", k + 1);
        previous_end = TEMPO_LIST[k].end_time;
    }
    return TOT_TEMPOS;
}

bool good_tempo(float tempo) { return tempo >= LOWEST_TEMPO && tempo <= HIGHEST_TEMPO; }

bool good_time(float time) { return time >= 0.0F && time <= LAST_BEAT; }

void print_tempos() {
    Mprintf("\n  Stored Tempos (There are %d defs):", TOT_TEMPOS);
    for (int k = 0; k < TOT_TEMPOS; ++k) {
        const TempoDef& entry = TEMPO_LIST[k];
        const int curve = to_int32(entry.curve_type);
        Mprintf("\n\t%d: Stime %f, Etime %f, Stempo %f, Etempo %f, Type %c", k + 1, entry.start_time,
                entry.end_time, entry.start_tempo, entry.end_tempo, shown_type(curve));
        if (curve == USER_CURVE) Mprintf(", Vcurve = %f", entry.curve_value);
    }
    Mprintf("\n");
}

void reset_tempo_map() {
    std::fill(std::begin(TEMPO_LIST), std::end(TEMPO_LIST), TempoDef{});
    TEMPO_LIST[0] = INITIAL_ENTRY;
    TOT_TEMPOS = 1;
    TEMPO = INITIAL_TEMPO;
}

}  // namespace vorn
