#pragma once

#include "blocks/statement.h"
#include "input/reader.h"

namespace vorn {

// One item of a data list at pos: a value, a separator, a fusion mark, a run of
// "/" or an "x" repeat. Errors 23, 24, 27, 32, 45, 49, 54 and 73; warnings 10
// and 12 mark the block as full.
[[nodiscard]] int parse_pdata(Reader& reader, Statement& statement);

// The parts of parse_pdata; pos on the separator, on the value, behind the first
// "/", and on the "x".
[[nodiscard]] int do_separators(Reader& reader, Statement& statement);
[[nodiscard]] int do_data(Reader& reader, Statement& statement);
[[nodiscard]] int do_slash(Reader& reader, Statement& statement);
[[nodiscard]] int do_x(Reader& reader, Statement& statement);

}  // namespace vorn
