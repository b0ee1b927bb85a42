#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "kit/events/roles.h"

// The notes of a score as MIDI knows them: keys, velocities and ticks, a track for
// each instrument.

namespace vorn::kit {

constexpr int TICKS_PER_QUARTER = 480;
constexpr int MIDI_CHANNELS = 16;
constexpr int DRUM_CHANNEL = 10;

struct MidiOptions {
    WantedRoles roles;
    std::map<int, int> channels;  // instrument to channel, 1 to 16
    std::map<int, int> programs;  // instrument to program, 1 to 128
};

struct MidiNote {
    std::uint32_t start = 0;  // ticks
    std::uint32_t end = 0;    // ticks, above start
    std::uint8_t key = 0;
    std::uint8_t velocity = 0;
};

struct MidiTrack {
    int instrument = 0;
    int channel = 1;  // 1 to 16
    int program = 0;  // 1 to 128; 0: none is set
    std::vector<MidiNote> notes;
};

struct MidiNotes {
    double tempo = 60;                 // quarters per minute, of the whole file
    std::vector<MidiTrack> tracks;     // by instrument
    std::vector<std::string> remarks;  // what the composer should know, a sentence each
    std::string error;                 // why there can be no file; else empty
};

// All blocks of a run, rests left out. Times are rounded to ticks once, from the
// absolute time.
[[nodiscard]] MidiNotes midi_notes(const ScoreRun& run, const MidiOptions& options);

}  // namespace vorn::kit
