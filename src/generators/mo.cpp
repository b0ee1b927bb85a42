#include "generators/mo.h"

#include "generators/curve_reader.h"
#include "input/errors.h"
#include "input/skip.h"

// Motions. Both ends are ranges, drawn anew for every event, so a bracketed end
// makes the whole line jitter while plain values give a fixed one:
//
//     MO(T 1 60 72)           60 to 72 in equal steps
//     MO(T 1 e* [58 62] 72)   from about 60 to 72 by the square of the time
//
// Under note input a c, e, f, l, s or v right behind the weight is a curve
// letter, not a note: kept on purpose.

namespace vorn {

namespace {

// [curve]
int get_curve(Motion& motion, Reader& reader, bool over_time_allowed) {
    float code = 0;
    if (const int result = get_curve_type(reader, code, motion.exponent, over_time_allowed)) return result;
    motion.curve = static_cast<std::uint32_t>(code);
    return 0;
}

// range range
int get_ends(Motion& motion, Reader& reader, float time) {
    if (const int result = get_value_range(motion.start, reader)) return result;
    if (const int result = skip_stuff(reader)) return result;
    if (const int result = get_value_range(motion.end, reader)) return result;
    const bool stops = stops_time(motion.start, time) || stops_time(motion.end, time);
    return stops ? error::ZERO_INTERVAL_IN_DDF : 0;
}

// weight [curve] range range
int get_sub_range(MoData& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::MISSING_WEIGHT)) return result;
    Motion motion;
    const bool is_span = !(data.time < 0);
    if (const int result = get_curve(motion, reader, is_span)) return result;
    if (const int result = get_ends(motion, reader, data.time)) return result;
    if (!data.motion.append(motion)) return error::OUT_OF_MEMORY;
    return skip_stuff(reader);
}

}  // namespace

int get_MO_data(MoData& data, Reader& reader) { return read_sub_ranges(data, reader, get_sub_range); }

int make_MO(MoData& data, std::uint32_t sub_range, const Progress& progress, float& value) {
    const Motion& motion = data.motion[sub_range];
    const float start = draw_value(motion.start);
    const float end = draw_value(motion.end);
    value = curve_value(progress, motion.curve, start, end, motion.exponent);
    return 0;
}

}  // namespace vorn
