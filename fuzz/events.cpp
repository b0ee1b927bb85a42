#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "drawing/drawn_score.h"
#include "tests/kit/events_check.h"

// Tables of events of drawn scores, and of any bytes: the first one says which.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const bool is_drawn = size == 0 || data[0] % 4 != 0;
    const std::size_t skipped = size == 0 ? 0 : 1;
    const auto read = is_drawn ? vorn::fuzz::draw_score : vorn::fuzz::score_of_bytes;
    const std::string problem = vorn::kit::test::events_problem(read(data + skipped, size - skipped).inputs);
    if (problem.empty()) return 0;
    std::fprintf(stderr, "\nPROBLEM: %s\n", problem.c_str());
    std::abort();
}
