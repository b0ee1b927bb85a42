#include "driver/reset.h"

#include "blocks/block_state.h"
#include "blocks/pitch_input.h"
#include "driver/files.h"
#include "driver/options.h"
#include "generators/random.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/durations.h"
#include "output/event_list.h"
#include "output/output_file.h"
#include "output/tempo_map.h"
#include "output/value_queue.h"
#include "preproc/preprocessor.h"

// Every owner of program-wide variables restores its own; this is the one list of them.

namespace vorn {

void reset_program() {
    reset_run_flags();     // flags of the command line, message streams
    reset_messages();      // messages not yet written
    reset_options();       // file names
    reset_files();         // input and temporary file
    reset_output_file();   // output and its buffer
    reset_random();        // the random sequence
    reset_tempo_map();     // tempo definitions, current tempo
    reset_durations();     // time variables
    reset_event_list();    // events of a block that was not finished
    reset_value_queue();   // values of a loop
    reset_block_state();   // block, statement and settings
    reset_pitch_input();   // octave of the last note name
    reset_preprocessor();  // macros, constants, conditionals, comment state
}

}  // namespace vorn
