#pragma once

#include <cstdint>

// Limits of include resolution; its entry point is in preproc/preprocessor.h.

namespace vorn {

constexpr int MAX_INCLUDE_FILES = 12;  // files per run, the main file counted
constexpr int MAX_INCLUDE_NAME = 255;  // characters of a file name

// Characters of one file that is a device or a pipe, and so may have no end.
constexpr std::int64_t MAX_ENDLESS_LENGTH = 100'000'000;

}  // namespace vorn
