#pragma once

#include <cstdint>

#include "input/reader.h"

namespace vorn {

constexpr int SKIPPED_BLOCK = -1;  // result for a negative instrument number

constexpr float MAX_BEATS = 10000;  // longest block

// "i" number "=" p-fields start length "{"
// pos on the "i"; leaves it behind "{". Sets the block state. Returns 0,
// SKIPPED_BLOCK with pos behind the block's "}", or an error number.
[[nodiscard]] int do_p1(Reader& reader);

// beats | "-" events
// Errors 13, 14, 120 and 121.
[[nodiscard]] int get_amount(const char* text, std::int32_t& pos);

}  // namespace vorn
