#pragma once

#include "blocks/statement.h"
#include "input/reader.h"

// When a block is full, and how one value becomes an event, a duration or a
// p-field value. Everything that stores a value goes through these routines:
// data lists, repeats, the fill and the data-defining functions.

namespace vorn {

// Whether the block is full: by beats while EVENTS is 0, else by events.
[[nodiscard]] bool out_of_time();

// Creates one event of P2. The value in beats is converted to seconds at CBEATS
// (handed out as `seconds`, before deviation), deviated and inserted; CBEATS
// grows by the value. Error 32.
[[nodiscard]] int store_p2(float beats, float& seconds);

// The second half of store_p2, for an interval already converted to seconds.
[[nodiscard]] int insert_start(float beats, float seconds);

// Advances the cursor to the next event and stores its duration by the P3 code
// scheme: interval times n (below 200), plus n (200), minus n (300), n beats
// (400) or n seconds (1000). May raise warning 1.
void store_p3(const Reader& reader, ListNode*& cursor, float value);

// Stores one value of P4 and up behind the cursor: deviation, rounding of pitch
// input, factor. Uses and clears a pending fusion mark. Error 32.
[[nodiscard]] int store_p4(Statement& statement, float value);

// The value, rounded for note-name and octave.pitch-class input unless NX.
float adjust(float value);

// The signed remainder of a P3 value; its code (0, 200, 300, 400, 1000) goes to `code`.
float extract_p3val(float value, int& code);

}  // namespace vorn
