#pragma once

#include <cstddef>
#include <cstdint>

#include "input/real_text.h"
#include "output/event_list.h"
#include "output/midi_events.h"

// The trace of a MIDI run: one line of text for every event of the track.

namespace vorn {

// A real that the trace showed before. The same few durations, notes and
// velocities come again and again, and a copy is quicker than new digits.
struct ShownReal {
    static constexpr std::size_t TEXT_SIZE = 16;  // longer texts are not kept

    float value = 0;
    std::uint32_t size = 0;  // 0: nothing yet
    char text[TEXT_SIZE];
};

// Lines gathered and not yet printed, because a block may hold millions of events.
struct MidiTrace {
    static constexpr std::size_t SIZE = 65536;

    static constexpr int SHOWN_BITS = 10;

    ShownReal shown[1 << SHOWN_BITS];  // by a hash of the value; the latest is kept
    std::size_t used = 0;              // bytes of text
    char text[SIZE];
};

// Adds the line of an event whose P4 and P5 are velocity and note.
void trace_event(MidiTrace& trace, const ListNode& event);

// Prints what is gathered, also under SUPRESS.
void print_trace(MidiTrace& trace);

}  // namespace vorn
