#pragma once

#include <cstdint>

#include "input/reader.h"

namespace vorn {

// Replaces text[start, end) by `inserted` within a buffer of LINE_SIZE bytes.
// False, with the text untouched, when the result would exceed LINE_SIZE - 1.
// `inserted` must not lie in `text`.
[[nodiscard]] bool splice(char* text, std::int32_t start, std::int32_t end, const char* inserted);

// Tells whoever watches the line that splice has done this in it.
void tell_splice(const WatchedLine& line, SpliceKind kind, const char* name, std::int32_t start,
                 std::int32_t end, const char* inserted);

}  // namespace vorn
