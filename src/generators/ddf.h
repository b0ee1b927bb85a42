#pragma once

#include "blocks/statement.h"
#include "input/reader.h"

// The data-defining functions: generators written inside a p-field statement.
// pos rests behind the two-letter name on entry and behind ")" on success.

namespace vorn {

enum class DdfKind { RA, RW, MO, SE, EX, MS, HO };

// Runs one data-defining function over the statement. Sets statement.block_full
// when it ran into the end of the block. Returns 0 or an error number.
[[nodiscard]] int do_DDF(DdfKind kind, Reader& reader, Statement& statement);

// S2: sets whose elements may be chords. P4 and up.
[[nodiscard]] int do_S2(Reader& reader, Statement& statement);

}  // namespace vorn
