#include "generators/ho.h"

#include "blocks/input_values.h"
#include "input/errors.h"
#include "input/skip.h"

// Held values.
//
//     HO(T 60)    60 for every event
//
// There is no weight to choose by, yet every event takes the draw of a choice
// from the sequence, as with all functions.

namespace vorn {

int get_HO_data(HoData& data, Reader& reader) {
    if (const int result = get_dynfunc_dur(data.time, reader)) return result;
    if (const int result = skip_stuff(reader)) return result;
    // The message speaks of RW: kept on purpose.
    if (!get_input_type(data.value, reader.text, reader.pos)) return error::BAD_WALK_RANGE;
    if (const int result = skip_stuff(reader)) return result;
    if (reader.text[reader.pos] != ')') return error::HOLD_WITHOUT_PARENTHESIS;
    ++reader.pos;
    return set_single_weight(data.weights);
}

int make_HO(HoData& data, std::uint32_t, const Progress&, float& value) {
    value = data.value;
    return 0;
}

}  // namespace vorn
