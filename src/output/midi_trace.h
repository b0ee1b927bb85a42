#pragma once

#include <cstddef>

#include "input/real_text.h"
#include "output/event_list.h"
#include "output/midi_events.h"

// The trace of a MIDI run: one line of text for every event of the track.

namespace vorn {

// A real that the trace showed before. Starts, durations, notes and velocities
// repeat, and a copy is quicker than new digits.
struct ShownReal {
    float value = 0;
    std::size_t size = 0;  // 0: nothing yet
    char text[REAL_TEXT_SIZE];
};

// Lines gathered and not yet printed, because a block may hold millions of events.
struct MidiTrace {
    static constexpr std::size_t SIZE = 65536;

    ShownReal start;
    ShownReal duration;
    ShownReal velocity[2];        // of note-offs and of note-ons
    ShownReal notes[MIDI_NOTES];  // by their whole numbers
    std::size_t used = 0;         // bytes of text
    char text[SIZE];
};

// Adds the line of an event whose P4 and P5 are velocity and note.
void trace_event(MidiTrace& trace, const ListNode& event);

// Prints what is gathered, also under SUPRESS.
void print_trace(MidiTrace& trace);

}  // namespace vorn
