#pragma once

#include "input/reader.h"

// The one place where a line enters the program.

namespace vorn {

constexpr int END_OF_INPUT = -1;  // result of get_buff when no line is left

// Fetches the next line into the reader: read, count, clean, conditionals,
// macros, constants, echo. Returns 0, the positive error number of a
// preprocessor, or END_OF_INPUT, which leaves text, pos and line as they were.
[[nodiscard]] int get_buff(Reader& reader);

// The character at pos, stepping behind it. At the end of the text: 0, and pos stays.
char get_c(const char* text, std::int32_t& pos);

}  // namespace vorn
