#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "drawing/drawn_score.h"
#include "tests/kit/events_check.h"

// Tables of events of drawn scores, and of any bytes: the first one says which.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string problem = vorn::kit::test::events_problem(vorn::fuzz::score_of_kind(data, size).inputs);
    if (problem.empty()) return 0;
    std::fprintf(stderr, "\nPROBLEM: %s\n", problem.c_str());
    std::abort();
}
