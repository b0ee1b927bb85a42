#pragma once

#include <cstdint>

#include "output/event_list.h"
#include "output/output_file.h"

// Standard MIDI File, format 1, 480 ticks per quarter note at 60 beats per minute.

namespace vorn {

void PutMidiHeader(OutputFile& out, unsigned tracks);

// The conductor track; length in seconds.
void PutTrack1(OutputFile& out, float length);

// The note track of a list that List2MIDI has prepared, on channel 0; nothing
// for an empty list.
void WriteTrack(OutputFile& out, const ListNode* list, std::uint64_t track_size);

// The pieces that tracks are made of. Notes, velocities and channels 0 to 15
// count from 0; the low eight bits of each number are written.
void WriteVarLen(OutputFile& out, std::uint64_t value);
void PutTrkHeader(OutputFile& out, std::uint64_t length);  // length in bytes of what follows
void NoteOn(OutputFile& out, std::uint64_t delta, int note, int velocity, int channel);
void NoteOff(OutputFile& out, std::uint64_t delta, int note, int channel);  // velocity 64

}  // namespace vorn
