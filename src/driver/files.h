#pragma once

#include <cstdio>

// The files of a run: opened in a fixed order, closed and checked together.

namespace vorn {

extern std::FILE* fin;   // the input, later the temporary file reopened for reading; null when closed
extern std::FILE* ftmp;  // the temporary file while it is being written; null otherwise

constexpr int TMP_NAME_SIZE = 1024;
extern char tmp_fname[TMP_NAME_SIZE];  // name of the temporary file; empty while there is none

// Opens input, output, expansion file, temporary file and log, in this order.
// False with the message printed; nothing stays open then. What the files that
// will be written hold already stays in them until cut_older_texts.
[[nodiscard]] bool open_files();

// Whether the opened include file is none that the run writes. Otherwise, with
// the message printed, that file keeps its text: nothing is written to it any more.
[[nodiscard]] bool is_separate_include(std::FILE* included);

// Cuts off what output, expansion file and log hold beyond what this run has
// written. For when the include files are known. False with the message printed.
bool cut_older_texts();

// Closes input and temporary file and reopens the latter as fin. Returns 0, error
// 9, or 999 when the input could not be read to its end or the temporary file
// could not be written (reported here).
[[nodiscard]] int reopen_temporary_file();

// Closes every file and removes the temporary one. False, with a message for
// each, when a file could not be written in full.
bool close_files();

void reset_files();

}  // namespace vorn
