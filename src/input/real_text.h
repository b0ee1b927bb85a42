#pragma once

#include <cstddef>

namespace vorn {

constexpr std::size_t REAL_TEXT_SIZE = 128;  // bytes that any format_real call may write

// Writes value as printf's "%*.*f" does (width, decimals 0 to 7, round half to
// even on the exact binary value, sign of zero kept) without a terminating
// zero; returns the end of what was written. Not a number is "-nan", whatever its
// sign.
char* format_real(char* to, float value, int width, int decimals);

// Writes value as printf's "%*d" does; returns the end.
char* format_integer(char* to, int value, int width);

}  // namespace vorn
