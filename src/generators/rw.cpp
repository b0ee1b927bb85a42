#include "generators/rw.h"

#include "blocks/input_values.h"
#include "generators/arithmetic.h"
#include "generators/walk.h"
#include "input/errors.h"
#include "input/numbers.h"
#include "input/skip.h"

// Random walks. An event gets the place that the walk stands on, and the walk
// moves on behind it, so the first event gets the starting value exactly:
//
//     RW(T 1 [0 10] .2 5)    5, then at most 1 away from the last each time
//
// Low, high and start are in the input type; the window is a plain number.

namespace vorn {

namespace {

// ["["] low high ["]"]
// Each bracket may stand without the other: kept on purpose.
int get_bounds(WalkRange& range, Reader& reader) {
    if (reader.text[reader.pos] == '[') {
        ++reader.pos;
        if (const int result = skip_stuff(reader)) return result;
    }
    if (!get_input_type(range.low, reader.text, reader.pos)) return error::BAD_WALK_RANGE;
    if (const int result = skip_stuff(reader)) return result;
    if (!get_input_type(range.high, reader.text, reader.pos)) return error::BAD_WALK_RANGE;
    if (range.low > range.high) swapf(range.low, range.high);
    if (const int result = skip_stuff(reader)) return result;
    if (reader.text[reader.pos] != ']') return 0;
    ++reader.pos;
    return skip_stuff(reader);
}

// window start
int get_walk(WalkRange& range, Reader& reader) {
    const bool found = get_f(range.window, reader.text, reader.pos);
    if (!found || range.window < 0 || range.window > 1) return error::BAD_WINDOW;
    if (const int result = skip_stuff(reader)) return result;
    float start = 0;
    if (!get_input_type(start, reader.text, reader.pos)) return error::BAD_WALK_START;
    if (start < range.low || start > range.high) return error::BAD_WALK_START;
    // A range of no width, or of one beyond all numbers, has no place inside: the walk begins at its low end.
    const float position = (start - range.low) / (range.high - range.low);
    range.position = position >= 0 ? position : 0.0F;
    return 0;
}

// weight bounds walk
int get_sub_range(RwData& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::MISSING_WEIGHT)) return result;
    WalkRange range;
    if (const int result = get_bounds(range, reader)) return result;
    if (const int result = get_walk(range, reader)) return result;
    if (!data.range.append(range)) return error::OUT_OF_MEMORY;
    return skip_stuff(reader);
}

}  // namespace

int get_RW_data(RwData& data, Reader& reader) { return read_sub_ranges(data, reader, get_sub_range); }

int make_RW(RwData& data, std::uint32_t sub_range, const Progress&, float& value) {
    WalkRange& range = data.range[sub_range];
    value = rand_window(range.position, range.low, range.high, range.window);
    return 0;
}

}  // namespace vorn
