#pragma once

#include <cstdint>

#include "output/event_list.h"
#include "output/output_file.h"

namespace vorn {

// How the events of a block are written. The arrays are indexed by p-field number - 2.
struct ScoreFormat {
    int instrument;
    int pfields;                     // P1 to Pn are written
    const std::uint32_t* out_types;  // output type codes
    const std::uint32_t* decimals;   // of type "re"
    const std::int32_t* fft_sizes;   // size index of type "bn"
    std::uint64_t sample_rate;
};

// Removes the rests and writes one i-statement per event. False, with nothing
// written, when the list is empty or holds nothing but rests (reported here).
[[nodiscard]] bool print_csound(ListNode*& list, OutputFile& out, const ScoreFormat& format,
                                EventCounts counts);

}  // namespace vorn
