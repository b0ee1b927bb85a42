#include "generators/ra.h"

#include "input/errors.h"
#include "input/skip.h"

// Random values. Each sub-range is a weight and a range with a distribution:
//
//     RA(T .5 60 .5 [g 72 64])    half the events 60, the others around 68
//
// One draw for the weight, then what the distribution takes.

namespace vorn {

namespace {

// weight range
int get_sub_range(RaData& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::MISSING_WEIGHT)) return result;
    ValueRange range;
    if (const int result = get_value_range(range, reader)) return result;
    if (stops_time(range, data.time)) return error::ZERO_INTERVAL_IN_DDF;
    if (!data.range.append(range)) return error::OUT_OF_MEMORY;
    return skip_stuff(reader);
}

}  // namespace

int get_RA_data(RaData& data, Reader& reader) { return read_sub_ranges(data, reader, get_sub_range); }

int make_RA(RaData& data, std::uint32_t sub_range, const Progress&, float& value) {
    value = draw_value(data.range[sub_range]);
    return 0;
}

}  // namespace vorn
