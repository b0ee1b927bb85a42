#pragma once

#include "blocks/statement.h"
#include "input/reader.h"

namespace vorn {

// Runs a command of a p-field statement that is not an input type: a
// data-defining function or a setting. pos rests behind its name. Returns 0 or
// an error number; 20 for a code that has no handler in a statement.
[[nodiscard]] int do_commands(int code, Reader& reader, Statement& statement);

}  // namespace vorn
