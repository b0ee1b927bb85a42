#include "generators/value_set.h"

#include "blocks/input_values.h"
#include "input/errors.h"
#include "input/skip.h"

// Sets as SE and MS read them: one plain value, or any number in brackets.
//
//     60    [60 62, 64 / 67]
//
// The values of all sets of a function stand one behind the other in one array,
// so a set is a place in it and a size.

namespace vorn {

namespace {

// value
int get_value(GrowingArray<float>& values, Reader& reader, int bad_value) {
    float value = 0;
    if (!get_input_type(value, reader.text, reader.pos)) return bad_value;
    return values.append(value) ? 0 : error::OUT_OF_MEMORY;
}

}  // namespace

int get_value_set(GrowingArray<float>& values, std::uint32_t& size, Reader& reader) {
    size = 1;
    if (reader.text[reader.pos] != '[') return get_value(values, reader, error::MISSING_VALUE);
    ++reader.pos;
    if (const int result = skip_stuff(reader)) return result;
    for (size = 0; reader.text[reader.pos] != ']'; ++size) {
        if (const int result = get_value(values, reader, error::BAD_BRACKET_VALUE)) return result;
        if (const int result = skip_stuff(reader)) return result;
    }
    if (size == 0) return error::BAD_BRACKET_VALUE;
    ++reader.pos;
    return 0;
}

}  // namespace vorn
