#include "generators/ddf_time.h"

#include "blocks/block_state.h"
#include "generators/arithmetic.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/run_flags.h"
#include "input/skip.h"

// How long a data-defining function lasts.
//
// A time of 0 or more is a span of beats, a negative one a number of events.
// "T" takes the block's own measure, and so does a fraction of it:
//
//     block of 10 events:   (T     -10        (T*.25   -3, halves up
//     block of 8 beats:     (T       8        (T*.25    2

namespace vorn {

namespace {

// The given part of the block. The number of events is the present one, which
// fusion marks may have raised: kept on purpose.
float part_of_block(float fraction) {
    if (ETIME < 0) return static_cast<float>(-Round(fraction * static_cast<float>(EVENTS)));
    return ETIME * fraction;
}

// "T" ["*" fraction]
int get_block_time(float& time, Reader& reader) {
    float fraction = 1.0F;
    ++reader.pos;
    if (reader.text[reader.pos] == '*') {
        ++reader.pos;
        const char first = reader.text[reader.pos];
        if (!is_digit(first) && first != '.') return error::BAD_TIME_FRACTION;
        if (!get_f(fraction, reader.text, reader.pos)) return error::BAD_TIME_FRACTION;
    }
    time = part_of_block(fraction);
    if (!SUPRESS) Mprintf("\n\tLine %d: T evaluated at = %f", reader.line, time);
    return 0;
}

}  // namespace

int get_dynfunc_dur(float& time, Reader& reader) {
    if (const int result = skip_white(reader)) return result;
    if (reader.text[reader.pos] != '(') return error::DDF_WITHOUT_PARENTHESIS;
    ++reader.pos;
    if (const int result = skip_white(reader)) return result;
    if (reader.text[reader.pos] == 'T') {
        if (const int result = get_block_time(time, reader)) return result;
    } else if (!get_f(time, reader.text, reader.pos)) {
        return error::BAD_DDF_TIME;
    }
    return skip_wc(reader);
}

}  // namespace vorn
