#pragma once

#include <cstdint>

#include "input/reader.h"

// "#if(" and "#endif". The entry points of the line buffer and the driver are
// declared in preproc/preprocessor.h.

namespace vorn {

constexpr std::int32_t ENDIF_LENGTH = 5;  // "endif"

extern int IF_MATCH;          // "#if" blocks open, true and false ones alike; 0: none
extern float IF_VALUE;        // value of the last condition read; 0 before the first
extern unsigned char IN_IF0;  // 1: a false block is being skipped

// "if(" value ")", of which pos stands on the "i". The value may be a call of a macro
// or constant, which is then expanded in the line. `value` is stored as soon as it
// is read, also when the ")" is then missing. Leaves pos behind the ")".
[[nodiscard]] int get_if(char* text, std::int32_t& pos, const WatchedLine& line, float& value);

// Reads the condition; when it is zero, moves behind the matching "#endif".
[[nodiscard]] int do_if(Reader& reader);

void reset_conditionals();

}  // namespace vorn
