#pragma once

#include <cstdint>

#include "output/event_list.h"

// From the events of a block to the events of a MIDI track, and how both the
// size and the bytes of that track measure time: in ticks, written as
// variable-length numbers of seven bits a byte.

namespace vorn {

// What ListNode::code says in a list that List2MIDI has prepared.
constexpr std::uint32_t NOTE_OFF_CODE = 0;
constexpr std::uint32_t NOTE_ON_CODE = 1;

constexpr int MIDI_NOTES = 128;  // note numbers of a MIDI file

constexpr std::uint64_t MAX_TICKS = 268'435'455;  // the largest number of four bytes of seven bits

// Seconds in ticks of 1/480, cut to whole ones and to 0 ... MAX_TICKS.
std::uint64_t to_ticks(float seconds);

// Ticks from one event to the next; 0 where starts step back.
inline std::uint64_t delta_ticks(float previous_start, float start) {
    return to_ticks(start - previous_start);
}

// Bytes of a value written as a variable-length number, 1 or more.
int VLSize(std::uint64_t value);

// Removes the rests, turns P4 and P5 into velocity and note, and inserts a
// note-off for every note, in playing order. `track_size` is the size in bytes
// of the events as written. NO_NOTES for an empty list and for one that is all
// rests (reported here); OUT_OF_MEMORY stands for error 32.
enum class MidiResult { NOTES, NO_NOTES, OUT_OF_MEMORY };
[[nodiscard]] MidiResult List2MIDI(ListNode*& list, int pfields, int instrument, std::uint64_t& track_size,
                                   EventCounts counts);

}  // namespace vorn
