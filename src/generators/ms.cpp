#include "generators/ms.h"

#include "generators/curve_reader.h"
#include "generators/random.h"
#include "generators/value_set.h"
#include "input/errors.h"
#include "input/skip.h"

// Masks. The chance of set A follows a curve from 1 down to 0, set B takes the
// rest; within a set all elements are equally likely.
//
//     MS(T 1 [1 2] [8 9])    the first event from A, half-way either, the last from B
//
// In P2 the chance runs by exponent 1, and the elements are taken one field too
// low: A's begin on the exponent, B's end before its last. Kept on purpose.

namespace vorn {

namespace {

// [curve]
// Appends the exponent. A curve over time needs a span above 0: kept on purpose.
int get_curve(MsData& data, Mask& mask, Reader& reader) {
    float code = 0;
    float exponent = 0;
    if (const int result = get_curve_type(reader, code, exponent, data.time > 0)) return result;
    mask.curve = static_cast<std::uint32_t>(code);
    mask.first_field = data.fields.size();
    return data.fields.append(exponent) ? 0 : error::OUT_OF_MEMORY;
}

// weight [curve] set set
int get_sub_range(MsData& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::MISSING_WEIGHT)) return result;
    Mask mask;
    if (const int result = get_curve(data, mask, reader)) return result;
    if (const int result = get_value_set(data.fields, mask.size_a, reader)) return result;
    if (const int result = skip_stuff(reader)) return result;
    if (const int result = get_value_set(data.fields, mask.size_b, reader)) return result;
    if (!data.mask.append(mask)) return error::OUT_OF_MEMORY;
    return skip_stuff(reader);
}

}  // namespace

int get_MS_data(MsData& data, Reader& reader) { return read_sub_ranges(data, reader, get_sub_range); }

int make_MS(MsData& data, std::uint32_t sub_range, const Progress& progress, float& value) {
    const Mask& mask = data.mask[sub_range];
    const bool in_p2 = progress.event == nullptr;
    const float exponent = in_p2 ? 1.0F : data.fields[mask.first_field];
    const float chance = curve_value(progress, mask.curve, 1.0F, 0.0F, exponent);
    const bool from_a = chance >= unit_draw();
    const std::uint32_t size = from_a ? mask.size_a : mask.size_b;
    const std::size_t set_a = mask.first_field + (in_p2 ? 0 : 1);
    const std::size_t set = from_a ? set_a : set_a + mask.size_a;
    value = data.fields[set + static_cast<std::uint32_t>(rand()) % size];
    return 0;
}

}  // namespace vorn
