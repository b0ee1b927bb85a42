#pragma once

#include "kit/run/score_run.h"

// The one place of a score in which its variants differ: the number of the first
// "rs", of a constant or of a macro's body. A score without "rs" gets one as its
// first line, where it acts on everything.

namespace vorn::kit {

enum class Varied { SEED, CONSTANT, MACRO };

struct Variation {
    std::string error;  // not empty: the score cannot be varied so
    Varied kind = Varied::SEED;
    std::string name;         // "seed", or that of the constant or macro
    int file = 0;             // of the run's map
    std::uint64_t begin = 0;  // bytes [begin, end) of the file give way to
    std::uint64_t end = 0;    //
    std::string before;       // this,
    std::string after;        // the value, and this
};

constexpr unsigned MAX_SEED = 65535;

[[nodiscard]] Variation find_seed(const ScoreRun& run);
[[nodiscard]] Variation find_name(const ScoreRun& run, const std::string& name);

// The text of the file with another value; every other byte is as it was.
[[nodiscard]] std::string varied_text(const Variation& variation, const std::string& text,
                                      const std::string& value);

// Where that byte of the varied text stands in the text before; one of the value, where it was put.
[[nodiscard]] std::uint64_t place_before(const Variation& variation, const std::string& value,
                                         std::uint64_t place);

// Whether a run of that text has come upon the value where it was put.
[[nodiscard]] bool has_value(const ScoreRun& run, const Variation& variation, const std::string& value);

}  // namespace vorn::kit
