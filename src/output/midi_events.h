#pragma once

#include <cstdint>

#include "output/event_list.h"

namespace vorn {

// Removes the rests, turns P4 and P5 into velocity and note, and inserts a
// note-off for every note, in playing order. `track_size` is the size in bytes
// of the events as written. Returns 1, 0 when there are no notes (reported
// here when all are rests), or error 32.
enum class MidiResult { NOTES, NO_NOTES, OUT_OF_MEMORY };
[[nodiscard]] MidiResult List2MIDI(ListNode*& list, int pfields, int instrument, std::uint64_t& track_size,
                                   EventCounts counts);

}  // namespace vorn
