#include "driver/run.h"

#include "blocks/block_state.h"
#include "blocks/gblock.h"
#include "driver/banner.h"
#include "driver/block_output.h"
#include "driver/files.h"
#include "driver/options.h"
#include "driver/reset.h"
#include "input/errors.h"
#include "input/line_buffer.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/durations.h"
#include "output/event_list.h"
#include "output/output_file.h"
#include "preproc/preprocessor.h"

// The program from its command line to its exit status.
//
//     options -> files -> banner -> includes -> { global block, instrument block } -> "e"
//
// Error numbers travel up to here, are reported once and end the run. A block
// in MIDI mode ends it as well: a MIDI file holds one block.

namespace vorn {

namespace {

enum class LoopEnd { NONE, END_OF_INPUT, MIDI_BLOCK };

// Releases lists, closes files, removes the temporary file. False, with the
// message printed, when a file could not be written in full.
bool clean_up(Observer* observer) {
    FreeListNodes(note_list);
    free_output_settings();
    free_macro_list();
    free_variable_list();
    const bool written = close_files(observer);
    MKLOG = 0;
    return written;
}

int fail(int error, const Reader& reader) {
    error_no(error, reader);
    clean_up(reader.observer);
    return 1;
}

int succeed(Observer* observer) {
    if (!clean_up(observer)) return 1;
    Mprintf("\n");
    return 0;
}

// Copies the input with its include files into the temporary file and reopens
// that as the input. Returns 0 or an error number.
int resolve_includes(Observer* observer) {
    int count = 0;
    const WatchedSource input = {observer, in_fname, 0, 0, fin, nullptr};
    const int result = parse_includes(fin, ftmp, count, accept_include, input);
    if (!cut_older_texts(observer) || result > 0) return error::ALREADY_PRINTED;
    return reopen_temporary_file(observer);
}

// Whether the run ends behind the block that was just read. What stands behind
// its "}" on the last line is dropped without a line feed, and read as a further
// block with one: kept on purpose.
int find_loop_end(const Reader& reader, LoopEnd& end) {
    const bool input_ended = std::feof(reader.stream) != 0;
    if (input_ended && reader.text[reader.pos] == 0) {
        if (!ifdef_match()) return error::MISSING_ENDIF;
        end = LoopEnd::END_OF_INPUT;
    } else if (MKMIDI) {
        end = LoopEnd::MIDI_BLOCK;
    } else if (input_ended) {
        end = LoopEnd::END_OF_INPUT;
    }
    return 0;
}

// Global and instrument blocks in turn. Returns 0 or an error number.
int convert_blocks(Reader& reader, LoopEnd& end) {
    int block_number = 1;
    while (end == LoopEnd::NONE) {
        int result = parse_gblock(reader);
        if (result <= 0) result = do_iblock(reader, block_number);
        if (result <= 0) result = find_loop_end(reader, end);
        if (result > 0) return result;
    }
    return 0;
}

int convert_score(Observer* observer) {
    Reader reader;
    reader.observer = observer;
    int result = resolve_includes(reader.observer);
    if (result != 0) return fail(result, reader);
    reader.stream = fin;
    LoopEnd end = LoopEnd::NONE;
    result = convert_blocks(reader, end);
    if (result != 0) return fail(result, reader);
    if (end == LoopEnd::END_OF_INPUT) {
        if (!MKMIDI) output_text(fout, "\ne\n");
        Mprintf("\n\nGlobal cumulative duration of all i-blocks = %f (secs)\n", CUM_TIME);
    }
    return succeed(reader.observer);
}

int run(int argc, const char* const* argv, Observer* observer) {
    if (!get_options(argc, argv, observer) || !check_fnames(observer) || !open_files(observer)) return 1;
    print_info(in_fname, out_fname, log_fname, exp_fname);
    return convert_score(observer);
}

}  // namespace

int run_program(int argc, const char* const* argv, RunStreams streams) {
    reset_program();
    set_message_streams(streams.out, streams.err);
    const int status = run(argc, argv, streams.observer);
    if (streams.observer != nullptr) streams.observer->on_end(status, CUM_TIME);
    return status;
}

}  // namespace vorn
