#include "generators/se.h"

#include "generators/value_set.h"
#include "input/errors.h"
#include "input/skip.h"

// Series and sets.
//
//     SE(T 1 [60 62 64])     any of the three, every time
//     SE(T 1 * [60 62 64])   each once in every three events
//     SE(T 1 x [60 62 64])   never the same twice in a row

namespace vorn {

namespace {

// weight ["*" | "x"] set
int get_sub_range(SeData& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::MISSING_WEIGHT)) return result;
    SetMode mode = SetMode::REPETITION;
    if (const int result = get_set_mode(mode, reader)) return result;
    std::uint32_t size = 0;
    if (!data.first_value.append(data.values.size())) return error::OUT_OF_MEMORY;
    if (const int result = get_value_set(data.values, size, reader)) return result;
    if (const int result = add_set_choice(data.choices, size, mode)) return result;
    return skip_stuff(reader);
}

}  // namespace

int get_SE_data(SeData& data, Reader& reader) {
    if (const int result = read_sub_ranges(data, reader, get_sub_range)) return result;
    // Without its flags a set merely repeats elements, so a failure is passed
    // over: kept on purpose.
    static_cast<void>(init_did(data.choices));
    return 0;
}

int make_SE(SeData& data, std::uint32_t sub_range, const Progress&, float& value) {
    const std::uint32_t element = get_set_element(data.choices.set[sub_range]);
    value = data.values[data.first_value[sub_range] + element - 1];
    return 0;
}

}  // namespace vorn
