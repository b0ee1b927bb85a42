#pragma once

#include "input/reader.h"

namespace vorn {

// Reads one instrument block; pos on the "i" of its header, at the end behind
// its "}". The events are then in note_list. Returns 0, an error number, or -1
// for a skipped block and at the end of input between two items.
[[nodiscard]] int parse_iblock(Reader& reader);

}  // namespace vorn
