#pragma once

#include <cstdio>

#include "input/observer.h"

// The temporary file: the score description with its includes in their places.

namespace vorn {

constexpr int TMP_NAME_SIZE = 1024;
extern char tmp_fname[TMP_NAME_SIZE];  // name of the temporary file; empty while there is none

// Makes the file in the folder that TMPDIR names, else in the system's, for its
// owner alone, and opens it for writing. Null with the message printed.
[[nodiscard]] std::FILE* open_temporary_file(Observer* observer);

void remove_temporary_file();

}  // namespace vorn
