#pragma once

#include "blocks/statement.h"
#include "input/reader.h"

namespace vorn {

// Completes the current p-field to the end of the block: cycles the loop queue,
// or holds the last value when there is none. Errors 32 and 54.
[[nodiscard]] int fill_to_end(const Reader& reader, Statement& statement);

}  // namespace vorn
