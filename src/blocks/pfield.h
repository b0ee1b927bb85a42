#pragma once

#include <cstdint>

#include "input/reader.h"

// One p-field statement: "p" number ["(" output ")"] data.

namespace vorn {

// "p" with a digit behind it at pos.
[[nodiscard]] bool is_pfield(const char* text, std::int32_t pos);

// Reads one whole statement; pos on its "p". Leaves pos on the next statement
// or on "}". Returns 0 or an error number, 999 when the message is already printed.
[[nodiscard]] int read_pfield_statement(Reader& reader);

// The state of a new statement. For P2 also takes the tempo at the block's start
// and turns STIME from beats into seconds.
void reset_pfield();

// The head behind the number: ["(" output ")"], then the data. Errors 17, 18, 19
// and those of do_pfield.
[[nodiscard]] int do_pN(Reader& reader);

// The data up to the next statement or "}", and the fill to the end of the block.
[[nodiscard]] int do_pfield(Reader& reader);

// Whether the loop mark "<" or ">" is allowed here; opens or closes the loop.
[[nodiscard]] bool set_loop(char mark);

}  // namespace vorn
