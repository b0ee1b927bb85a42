// One line for every event, in the order of the track, with the note and the
// velocity as they stand in the list:
//
//     "\n   0.00\t   1.00\tON\tN:   60.00\tV:   62.01\t"
//
// The line feed comes first and a tab last, so the trace continues whatever
// message stands before it. Invariant: the text has room for one more line.

#include "output/midi_trace.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "generators/arithmetic.h"
#include "input/messages.h"

namespace vorn {

namespace {

constexpr std::size_t LINE_SIZE_MAX = 4 * REAL_TEXT_SIZE + 32;
constexpr std::size_t SHORT_TEXT = 16;  // copied whole: a fixed size needs no call

template <std::size_t Size>
char* put_text(char* to, const char (&text)[Size]) {
    std::memcpy(to, text, Size - 1);
    return to + Size - 1;
}

// As messages show a real.
char* put_real(char* to, float value) { return format_real(to, value, 7, 2); }

char* put_real(char* to, float value, ShownReal& shown) {
    if (shown.size == 0 || std::bit_cast<std::uint32_t>(value) != std::bit_cast<std::uint32_t>(shown.value)) {
        shown.value = value;
        shown.size = static_cast<std::size_t>(put_real(shown.text, value) - shown.text);
    }
    if (shown.size <= SHORT_TEXT) {
        std::memcpy(to, shown.text, SHORT_TEXT);
    } else {
        std::memcpy(to, shown.text, shown.size);
    }
    return to + shown.size;
}

// "\n" start "\t" dur "\t" ON or OFF "\tN: " note "\tV: " velocity "\t"
char* put_event(MidiTrace& trace, char* to, const ListNode& event) {
    const int note = to_int32(double{event.pf[1]}) & (MIDI_NOTES - 1);
    to = put_real(put_text(to, "\n"), event.start, trace.start);
    to = put_real(put_text(to, "\t"), event.dur, trace.duration);
    to = event.code == NOTE_ON_CODE ? put_text(to, "\tON\tN: ") : put_text(to, "\tOFF\tN: ");
    to = put_real(to, event.pf[1], trace.notes[note]);
    to = put_real(put_text(to, "\tV: "), event.pf[0], trace.velocity[event.code]);
    return put_text(to, "\t");
}

}  // namespace

void trace_event(MidiTrace& trace, const ListNode& event) {
    if (MidiTrace::SIZE - trace.used <= LINE_SIZE_MAX) print_trace(trace);
    char* const line = trace.text + trace.used;
    trace.used += static_cast<std::size_t>(put_event(trace, line, event) - line);
}

void print_trace(MidiTrace& trace) {
    print_text(trace.text, trace.used);  // not silenced by SUPRESS: kept on purpose
    trace.used = 0;
}

}  // namespace vorn
