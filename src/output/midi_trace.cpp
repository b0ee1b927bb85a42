#include "output/midi_trace.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "input/messages.h"

// One line for every event, in the order of the track, with the note and the
// velocity as they stand in the list:
//
//     "\n   0.00\t   1.00\tON\tN:   60.00\tV:   62.01\t"
//
// The line feed comes first and a tab last, so the trace continues whatever
// message stands before it. Invariant: the text has room for one more line.

namespace vorn {

namespace {

constexpr std::size_t LINE_SIZE_MAX = 4 * REAL_TEXT_SIZE + 32;

template <std::size_t Size>
char* put_text(char* to, const char (&text)[Size]) {
    std::memcpy(to, text, Size - 1);
    return to + Size - 1;
}

// Bits of a value spread over the places of MidiTrace::shown: multiplicative
// hashing by the golden ratio (D. E. Knuth, 1973).
std::size_t place_of(std::uint32_t bits) {
    constexpr std::uint32_t GOLDEN_RATIO = 0x9E3779B1;
    return bits * GOLDEN_RATIO >> (32 - MidiTrace::SHOWN_BITS);
}

// As messages show a real.
char* put_real(char* to, float value) { return format_real(to, value, 7, 2); }

// The same for a value that may well have been shown before.
char* put_shown(char* to, float value, MidiTrace& trace) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    ShownReal& shown = trace.shown[place_of(bits)];
    if (shown.size != 0 && std::bit_cast<std::uint32_t>(shown.value) == bits) {
        std::memcpy(to, shown.text, sizeof shown.text);  // a fixed size needs no call
        return to + shown.size;
    }
    char* const end = put_real(to, value);
    const auto size = static_cast<std::size_t>(end - to);
    if (size > sizeof shown.text) return end;
    shown.value = value;
    shown.size = static_cast<std::uint32_t>(size);
    std::memcpy(shown.text, to, sizeof shown.text);
    return end;
}

// "\n" start "\t" dur "\t" ON or OFF "\tN: " note "\tV: " velocity "\t"
char* put_event(MidiTrace& trace, char* to, const ListNode& event) {
    to = put_real(put_text(to, "\n"), event.start);
    to = put_shown(put_text(to, "\t"), event.dur, trace);
    to = event.code == NOTE_ON_CODE ? put_text(to, "\tON\tN: ") : put_text(to, "\tOFF\tN: ");
    to = put_shown(to, event.pf[1], trace);
    to = put_shown(put_text(to, "\tV: "), event.pf[0], trace);
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
