#pragma once

#include <cstdint>

#include "generators/ddf_time.h"
#include "generators/progress.h"
#include "generators/weights.h"
#include "input/reader.h"
#include "input/skip.h"

namespace vorn {

// What every data-defining function reads. Each kind adds its own records, one
// per sub-range, and lives for one call.
struct DdfData {
    float time = 0;   // beats, or minus a number of events
    Weights weights;  // one per sub-range
};

// "(" time sub-range { sub-range } ")"
// The shape that the functions share. `read_sub_range` starts on the weight and
// leaves pos behind the separators that follow the sub-range.
template <typename Data>
[[nodiscard]] int read_sub_ranges(Data& data, Reader& reader, int (*read_sub_range)(Data&, Reader&)) {
    if (const int result = get_dynfunc_dur(data.time, reader)) return result;
    if (const int result = skip_stuff(reader)) return result;
    do {
        if (const int result = read_sub_range(data, reader)) return result;
    } while (reader.text[reader.pos] != ')');
    ++reader.pos;
    return 0;
}

// A function that has been read, as the drivers see it.
struct ValueMaker {
    float time;
    const Weights* weights;
    void* data;  // of the function's kind
    // Makes the value of one event from the sub-range chosen: 0 or an error number.
    int (*make_value)(void* data, std::uint32_t sub_range, const Progress& progress, float& value);
};

}  // namespace vorn
