#include "driver/block_output.h"

#include <cstdio>

#include "blocks/block_state.h"
#include "blocks/iblock.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/csound_writer.h"
#include "output/durations.h"
#include "output/event_list.h"
#include "output/midi_events.h"
#include "output/midi_file.h"
#include "output/output_file.h"

// One instrument block: read, write, report, release.
//
// A block without events goes the MIDI writer's way in both modes, which writes
// nothing for it. A block that writes nothing is not counted.

namespace vorn {

namespace {

// What a header gives a block; a skipped one has read none of it.
void describe_block(Block& block) {
    block.start_beat = SBEAT;
    block.start_seconds = STIME;
    block.length = ETIME;
    block.pfields = MAX_PFIELDS;
    block.output_types = OUTS;
    block.decimals = RE_FW;
    block.fft_sizes = FFT_SZ;
    block.sample_rate = SRATE;
    block.events = note_list;
}

enum class Written { BLOCK, NOTHING, OUT_OF_MEMORY };

Written write_score(int block_number) {
    char comment[64];
    std::snprintf(comment, sizeof comment, "\n;I-block #%d (i%d):", block_number, I_NO);
    output_text(fout, comment);
    const ScoreFormat format{I_NO, MAX_PFIELDS, OUTS, RE_FW, FFT_SZ, SRATE};
    return print_csound(note_list, fout, format, {EVENTS, EVENT_NO}) ? Written::BLOCK : Written::NOTHING;
}

Written write_midi() {
    std::uint64_t track_size = 0;
    switch (List2MIDI(note_list, MAX_PFIELDS, I_NO, track_size, {EVENTS, EVENT_NO})) {
        case MidiResult::NO_NOTES:
            return Written::NOTHING;
        case MidiResult::OUT_OF_MEMORY:
            return Written::OUT_OF_MEMORY;
        case MidiResult::NOTES:
            break;
    }
    PutMidiHeader(fout, 2);
    PutTrack1(fout, note_list->start + note_list->dur + 1.0F);
    WriteTrack(fout, note_list, track_size);
    return Written::BLOCK;
}

void tell_block(const Reader& reader, int block_number) {
    Block block;
    block.number = block_number;
    block.instrument = I_NO;
    block.is_midi = MKMIDI != 0;
    block.begin = reader.header;
    block.end = place(reader);
    if (I_NO >= 0) describe_block(block);
    reader.observer->on_block(block);
}

void report_block(int block_number) {
    ListStats stats;
    GetListStats(note_list, stats);
    if (stats.end_time > CUM_TIME) CUM_TIME = stats.end_time;
    LAST_IB_DUR = stats.duration;
    Mprintf("\n\n%d events generated in block #%d (i%d).\n", stats.count, block_number, I_NO);
    Mprintf("Total i-block duration: %f (secs), %f (beats)\n", stats.duration, stats.beats);
    Mprintf("Cumulative i-block duration: %f (secs)\n", stats.end_time);
}

}  // namespace

int do_iblock(Reader& reader, int& block_number) {
    reader.header = {};
    const int result = parse_iblock(reader);
    if (result > 0) return result;
    if (reader.header.line > 0 && reader.observer != nullptr) tell_block(reader, block_number);
    const bool score = !MKMIDI && note_list != nullptr;
    const Written written = score ? write_score(block_number) : write_midi();
    free_output_settings();
    if (written == Written::OUT_OF_MEMORY) return error::OUT_OF_MEMORY;
    if (written == Written::NOTHING) {
        if (block_number == 1) Mprintf("\n\n\t(N.B. No I-Block Data Written)");
        return 0;
    }
    report_block(block_number);
    ++block_number;
    FreeListNodes(note_list);
    return 0;
}

}  // namespace vorn
