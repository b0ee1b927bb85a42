#pragma once

#include <cstdint>

#include "output/event_list.h"
#include "output/output_file.h"

// Standard MIDI File, format 1, 480 ticks per quarter note at 60 beats per minute.

namespace vorn {

void PutMidiHeader(OutputFile& out, unsigned tracks);

// The conductor track; length in seconds.
void PutTrack1(OutputFile& out, float length);

// The note track of a list that List2MIDI has prepared; nothing for an empty list.
void WriteTrack(OutputFile& out, const ListNode* list, std::uint64_t track_size);

}  // namespace vorn
