#include <cstddef>
#include <cstdint>

#include "drawing/fuzz_target.h"

// Arbitrary bytes for a score description; their number chooses the options, so
// that every case of the tests is a seed as it stands. All run with "-s": a
// function that counts four billion events behind the end of a block is legal,
// and warns as often.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return vorn::fuzz::fuzz_one(vorn::fuzz::score_of_bytes(data, size));
}
