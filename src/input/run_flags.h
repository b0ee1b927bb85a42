#pragma once

#include <cstdio>

// What the command line asks for, and the streams that messages go to.
// Written by the driver before the first line is read; read everywhere.

namespace vorn {

extern int MKLOG;        // 1: messages are copied to fllog
extern int MKMIDI;       // 1: the output is a Standard MIDI File
extern int MKEXP;        // 1: every expanded line is echoed to fecho
extern int SUPRESS;      // 1: warnings, DDF-time trace and expansion messages are silent
extern int SHOW_TEMPOS;  // 1: the tempo map and every conversion are shown

extern std::FILE* std_out;  // the run's standard output; never null
extern std::FILE* std_err;  // the run's standard error; never null
extern int ON_TERMINAL;     // 1: std_err is a terminal; 0 of a stream in memory, too
extern std::FILE* fllog;    // log file, or null
extern std::FILE* fecho;    // expansion file, or null

// Makes these std_out and std_err, and looks at what std_err is.
void set_message_streams(std::FILE* out, std::FILE* err);

void reset_run_flags();

}  // namespace vorn
