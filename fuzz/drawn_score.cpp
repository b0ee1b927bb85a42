#include <cstddef>
#include <cstdint>

#include "drawing/fuzz_target.h"

// The bytes draw a score from the grammar of the language, valid or with a
// single mistake, with its include files and options.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return vorn::fuzz::fuzz_one(vorn::fuzz::draw_score(data, size));
}
