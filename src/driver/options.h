#pragma once

#include "input/observer.h"

// The command line.

namespace vorn {

extern const char* in_fname;   // input score description; null before the command line is read
extern const char* out_fname;  // output file; likewise
extern const char* log_fname;  // log file (-l), or null
extern const char* exp_fname;  // expansion file (-x), or null

// Reads the command line into the flags and file names. False when the run must
// stop, the message then already printed.
[[nodiscard]] bool get_options(int argc, const char* const* argv, Observer* observer = nullptr);

// Whether all file names differ, compared as texts; false with the message printed.
[[nodiscard]] bool check_fnames(Observer* observer = nullptr);

// Reports on standard error that a file name has been given twice.
void report_name_clash(Observer* observer);
constexpr const char* NAME_CLASH = "\nERROR: You can't use a filename multiple times!\n\n";

void print_usage(Observer* observer = nullptr);

void reset_options();

}  // namespace vorn
