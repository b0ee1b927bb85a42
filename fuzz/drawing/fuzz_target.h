#pragma once

#include <cstdio>
#include <cstdlib>

#include "drawing/score_checks.h"

namespace vorn::fuzz {

// What the two fuzzers of Vorn itself do with one input. While a corpus is chosen to be kept
// (VORN_FUZZ_KEEP is set) an input that meets the limit of events is refused:
// elsewhere, with the limit of the installed program, it would run for long.
inline int fuzz_one(const DrawnScore& score) {
    const Verdict verdict = check_score(score);
    if (!verdict.problem.empty()) {
        std::fprintf(stderr, "\nPROBLEM: %s\n", verdict.problem.c_str());
        std::abort();
    }
    if (verdict.out_of_room && std::getenv("VORN_FUZZ_KEEP") != nullptr) std::_Exit(1);
    return 0;
}

}  // namespace vorn::fuzz
