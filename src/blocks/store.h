#pragma once

#include "blocks/statement.h"
#include "input/reader.h"

namespace vorn {

// Where a value that is stored comes from; it decides how a chord is treated.
enum class ValueSource {
    DATA,   // read from the list: a new value, fused to the one before if marked so
    QUEUE,  // replayed from the loop queue, with its own fusion flag in IS_FUSED
    REPEAT  // the last value again; behind a chord from P4 on, the whole chord
};

// Stores one value into the current p-field and counts it: EVENT_NO grows by
// one and by the further events of a repeated chord, EVENTS by those. With
// rest_negates a negative note name turns the event that receives it into a
// rest, or a rest back into a note. Errors 54, and 32 also for more values than
// a block may have events.
[[nodiscard]] int store_value(const Reader& reader, Statement& statement, float value, ValueSource source,
                              bool rest_negates);

// Whether another LAST_VAL could never fill the block: an interval that does not
// move the beat position forward while the block's end is a beat.
[[nodiscard]] bool repeats_forever();

}  // namespace vorn
