#pragma once

#include "input/reader.h"

namespace vorn {

// Reads one instrument block and writes it, as score text or as a MIDI file, and
// reports its statistics. block_number grows by one for a block that was
// written. Returns 0, an error number, or -1 as parse_iblock does.
[[nodiscard]] int do_iblock(Reader& reader, int& block_number);

}  // namespace vorn
