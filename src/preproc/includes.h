#pragma once

// Limits of include resolution; its entry point is in preproc/preprocessor.h.

namespace vorn {

constexpr int MAX_INCLUDE_FILES = 12;  // files per run, the main file counted
constexpr int MAX_INCLUDE_NAME = 255;  // characters of a file name

}  // namespace vorn
