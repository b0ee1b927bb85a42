#pragma once

#include "input/reader.h"
#include "preproc/constant_list.h"

// References to constants, "~" NAME, "~[" equation "]" and "~@" digit, expanded in
// place in a text of LINE_SIZE bytes.

namespace vorn {

// Expands the reference behind a "~", of which pos stands on the character behind.
// Returns 0 with pos at the inserted text, or an error number with pos where reading stopped.
[[nodiscard]] int expand_variables(char* text, std::int32_t& pos, const WatchedLine& line);

constexpr int FOUND = 1;

// Reads a name at pos and looks it up: FOUND with the record, or 1000 with the
// message printed.
[[nodiscard]] int find_vname(const Constant*& constant, const char* text, std::int32_t& pos,
                             const WatchedLine& line);

// Replaces the reference whose "~" stands at pos by the value's text and says so,
// naming it by `label`, to the observer, too; 89 when the text would not fit.
[[nodiscard]] int vexpand_in_buff(SpliceKind kind, const char* label, char* text, std::int32_t pos,
                                  const WatchedLine& line, double value);

// Moves over a reference: from its "~" behind the name, the "]" or the "@".
void skip_vname_or_eq(const char* text, std::int32_t& pos);

}  // namespace vorn
