#pragma once

#include "input/reader.h"

namespace vorn {

// Reads global blocks up to the "i" of the next instrument block, running their
// commands. Returns 0 with pos on the "i", an error number, or END_OF_INPUT.
[[nodiscard]] int parse_gblock(Reader& reader);

// Runs one global command; pos behind its name. Error 47 for a code that is no
// global command, and the errors of the handlers.
[[nodiscard]] int do_gcommand(int code, Reader& reader);

}  // namespace vorn
