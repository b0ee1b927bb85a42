#include "output/midi_file.h"

#include "generators/arithmetic.h"
#include "output/midi_events.h"

// The bytes of a Standard MIDI File, format 1: a header chunk, a conductor track
// with time signature and tempo, and one track of notes.
//
//     delta 200, note 60, velocity 62    ->    81 48  90 3C 3E
//
// The tempo is fixed at 60 beats per minute with 480 ticks per quarter note, so
// one second is 480 ticks whatever tempo the score was written in. Every delta
// is cut to whole ticks on its own; what the cuts lose adds up and is kept on
// purpose.

namespace vorn {

namespace {

constexpr std::size_t VAR_LEN_BYTES = 10;  // of a 64-bit value in groups of seven bits
constexpr std::uint64_t FORMAT = 1;
constexpr std::uint64_t TICKS_PER_QUARTER = 480;
constexpr int NOTE_ON_STATUS = 0x90;
constexpr int NOTE_OFF_STATUS = 0x80;
constexpr int RELEASE_VELOCITY = 64;

constexpr unsigned char END_OF_TRACK[] = {0xFF, 0x2F, 0x00};  // behind its delta

// 4/4, 24 clocks per click, 8 thirty-seconds per quarter; 1,000,000 microseconds per quarter.
constexpr unsigned char TIME_AND_TEMPO[] = {0x00, 0xFF, 0x58, 0x04, 0x04, 0x02, 0x18, 0x08,
                                            0x00, 0xFF, 0x51, 0x03, 0x0F, 0x42, 0x40};

// The low bytes of value, highest first.
void put_number(OutputFile& out, std::uint64_t value, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
        output_char(out, static_cast<char>(value >> shift));
    }
}

// Seven bits a byte, the highest first, bit 7 set on all but the last.
char* put_var_len(char* to, std::uint64_t value) {
    for (int shift = 7 * (VLSize(value) - 1); shift > 0; shift -= 7) {
        *to++ = static_cast<char>((value >> shift) | 0x80);
    }
    *to++ = static_cast<char>(value & 0x7F);
    return to;
}

// All of an event in one piece, since a track may hold millions.
void put_event(OutputFile& out, std::uint64_t delta, int status, int note, int velocity) {
    char* const start = output_space(out, VAR_LEN_BYTES + 3);
    char* to = put_var_len(start, delta);
    *to++ = static_cast<char>(status);
    *to++ = static_cast<char>(note);
    *to++ = static_cast<char>(velocity);
    output_advance(out, static_cast<std::size_t>(to - start));
}

}  // namespace

void WriteVarLen(OutputFile& out, std::uint64_t value) {
    char* const start = output_space(out, VAR_LEN_BYTES);
    output_advance(out, static_cast<std::size_t>(put_var_len(start, value) - start));
}

void PutTrkHeader(OutputFile& out, std::uint64_t length) {
    output_text(out, "MTrk");
    put_number(out, length, 4);
}

void NoteOn(OutputFile& out, std::uint64_t delta, int note, int velocity, int channel) {
    put_event(out, delta, NOTE_ON_STATUS + channel, note, velocity);
}

void NoteOff(OutputFile& out, std::uint64_t delta, int note, int channel) {
    put_event(out, delta, NOTE_OFF_STATUS + channel, note, RELEASE_VELOCITY);
}

void PutMidiHeader(OutputFile& out, unsigned tracks) {
    output_text(out, "MThd");
    put_number(out, 6, 4);  // bytes that follow
    put_number(out, FORMAT, 2);
    put_number(out, tracks, 2);
    put_number(out, TICKS_PER_QUARTER, 2);
}

void PutTrack1(OutputFile& out, float length) {
    const std::uint64_t ticks = to_ticks(length);
    PutTrkHeader(out,
                 sizeof TIME_AND_TEMPO + static_cast<std::uint64_t>(VLSize(ticks)) + sizeof END_OF_TRACK);
    output_bytes(out, TIME_AND_TEMPO, sizeof TIME_AND_TEMPO);
    WriteVarLen(out, ticks);
    output_bytes(out, END_OF_TRACK, sizeof END_OF_TRACK);
}

void WriteTrack(OutputFile& out, const ListNode* list, std::uint64_t track_size) {
    if (list == nullptr) return;
    PutTrkHeader(out, track_size + 1 + sizeof END_OF_TRACK);
    float previous_start = 0;
    const ListNode* event = list;
    do {
        event = event->next;
        const std::uint64_t delta = delta_ticks(previous_start, event->start);
        const int note = to_int32(static_cast<double>(event->pf[1]));
        if (event->code == NOTE_ON_CODE) {
            NoteOn(out, delta, note, to_int32(static_cast<double>(event->pf[0])), 0);
        } else {
            NoteOff(out, delta, note, 0);
        }
        previous_start = event->start;
    } while (event != list);
    WriteVarLen(out, 0);
    output_bytes(out, END_OF_TRACK, sizeof END_OF_TRACK);
}

}  // namespace vorn
