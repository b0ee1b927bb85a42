#include "driver/banner.h"

#include "input/messages.h"
#include "input/run_flags.h"

// The banner tells which build ran and on which files.

namespace vorn {

const char* const VERSION = VORN_VERSION;  // of the project, in CMakeLists.txt

void print_version() { Mprintf("\nVorn (%s, %s, %s)\n", VERSION, __DATE__, __TIME__); }

void print_info(const char* input, const char* output, const char* log, const char* expansion) {
    print_version();
    Mprintf("\n\nInput\t= \"%s\"\nOutput\t= \"%s\" %s\n", input, output,
            MKMIDI ? "[MIDI file (type 1)]" : "[Csound score-file]");
    if (MKLOG) Mprintf("Log \t= \"%s\"\n", log);
    if (MKEXP) Mprintf("MExp\t= \"%s\"\n", expansion);
}

}  // namespace vorn
