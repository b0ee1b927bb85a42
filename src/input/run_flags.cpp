#include "input/run_flags.h"

#include <unistd.h>

// The run's flags and message streams. They are plain variables because every
// layer reads them and only the driver writes them, once, before any input.

namespace vorn {

int MKLOG = 0;
int MKMIDI = 0;
int MKEXP = 0;
int SUPRESS = 0;
int SHOW_TEMPOS = 0;

std::FILE* std_out = stdout;
std::FILE* std_err = stderr;
int ON_TERMINAL = 0;
std::FILE* fllog = nullptr;
std::FILE* fecho = nullptr;

void set_message_streams(std::FILE* out, std::FILE* err) {
    std_out = out;
    std_err = err;
    ON_TERMINAL = isatty(fileno(err));
}

void reset_run_flags() {
    MKLOG = MKMIDI = MKEXP = SUPRESS = SHOW_TEMPOS = 0;
    std_out = stdout;
    std_err = stderr;
    ON_TERMINAL = 0;
    fllog = fecho = nullptr;
}

}  // namespace vorn
