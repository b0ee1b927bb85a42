#include "generators/value_range.h"

#include "blocks/block_state.h"
#include "blocks/input_values.h"
#include "blocks/pitch_input.h"
#include "generators/arithmetic.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/skip.h"

// Ranges as RA and MO read them.
//
//     60           only 60
//     [60 72]      anything between, evenly
//     [g 72 60]    between 60 and 72, mostly around 66
//
// One character behind "[" decides whether there is a distribution letter,
// whatever follows it: under note input "[b3 c4]" asks for distribution "b" and
// then stumbles over the 3. Kept on purpose.

namespace vorn {

namespace {

constexpr char DISTRIBUTION_LETTERS[] = {'f', 'l', 'h', 't', 'g', 'x', 'b'};  // by code

// value [value] "]"
// Yields the number of values and leaves pos behind "]".
int get_bounds(ValueRange& range, Reader& reader) {
    float bound[2];
    int count = 0;
    for (; reader.text[reader.pos] != ']'; ++count) {
        const std::int32_t start = reader.pos;
        float value = 0;
        if (!get_input_type(value, reader.text, reader.pos)) return error::BAD_BRACKET_VALUE;
        if (count == 2) {
            reader.pos = start;
            return error::MORE_THAN_TWO_VALUES;
        }
        bound[count] = value;
        if (const int result = skip_stuff(reader)) return result;
    }
    if (count == 0) return error::BAD_BRACKET_VALUE;
    ++reader.pos;
    range.low = bound[0];
    range.high = bound[count - 1];
    return 0;
}

}  // namespace

int get_value_range(ValueRange& range, Reader& reader) {
    range.distribution = 0;
    if (reader.text[reader.pos] != '[') {
        if (!get_input_type(range.low, reader.text, reader.pos)) return error::MISSING_VALUE;
        range.high = range.low;
        return 0;
    }
    ++reader.pos;
    if (const int result = skip_stuff(reader)) return result;
    if (is_rrange_type(reader.text[reader.pos])) {
        range.distribution = get_rrange_type(reader.text, reader.pos);
        if (const int result = skip_stuff(reader)) return result;
    }
    if (const int result = get_bounds(range, reader)) return result;
    if (range.low > range.high) swapf(range.low, range.high);
    return 0;
}

std::uint32_t get_rrange_type(const char* text, std::int32_t& pos) {
    const char letter = to_lower(text[pos]);
    for (std::uint32_t code = 0; code < sizeof DISTRIBUTION_LETTERS; ++code) {
        if (DISTRIBUTION_LETTERS[code] != letter) continue;
        ++pos;
        return code;
    }
    return 0;
}

bool stops_time(const ValueRange& range, float time) {
    return P_NO == 2 && time > 0 && (range.low == 0 || range.high == 0);
}

}  // namespace vorn
