#pragma once

#include <cstdio>

#include "input/observer.h"

namespace vorn {

// Where a run writes what is not a file of its own, and who is told of it.
struct RunStreams {
    std::FILE* out;
    std::FILE* err;
    Observer* observer = nullptr;  // null: nobody
};

// The whole program: resets every program-wide variable, reads the command
// line, converts the score description and cleans up. Returns the exit status,
// 0 or 1. May be called again in the same process.
[[nodiscard]] int run_program(int argc, const char* const* argv, RunStreams streams);

}  // namespace vorn
