#pragma once

#include <cstdio>

#include "input/messages.h"
#include "preproc/preprocessor.h"

// The files of a run: opened in a fixed order, closed and checked together. What
// goes wrong is printed and told to the observer, if there is one.

namespace vorn {

extern std::FILE* fin;   // the input, later the temporary file reopened for reading; null when closed
extern std::FILE* ftmp;  // the temporary file while it is being written; null otherwise

// Opens input, output, expansion file, temporary file and log, in this order.
// False with the message printed; nothing stays open then. The files that are
// written keep their older text until cut_older_texts.
[[nodiscard]] bool open_files(Observer* observer);

// Whether the run writes the file of that name, its messages and temporary file included.
[[nodiscard]] bool is_written_file(const char* name);

// False, with the message printed, for an include file that the run has open already:
// that is still being read, or is written, be it by a standard stream. A file that is
// written keeps its text then: nothing more is written to it.
[[nodiscard]] bool accept_include(const WatchedSource& included, const MessagePlace& place);

// Cuts off what output, expansion file and log hold beyond what this run has
// written. To be called once the includes are copied, or when the run ends before.
// False with the message printed.
bool cut_older_texts(Observer* observer);

// Closes input and temporary file and reopens the latter as fin. Returns 0, error
// 9, or 999 when the input could not be read to its end or the temporary file
// could not be written (reported here).
[[nodiscard]] int reopen_temporary_file(Observer* observer);

// Closes every file and removes the temporary one. False, with a message for
// each, when a file could not be written in full.
bool close_files(Observer* observer);

void reset_files();

}  // namespace vorn
