#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kit/run/score_run.h"

// What is said of one place of a score: by the engine (errors, warnings) or by the
// kit (lint), with advice. The form in which it is printed is decided elsewhere.

namespace vorn::kit {

enum class Level { ERROR, WARNING, LINT };

// A change of the score that cures the mistake for certain.
struct Edit {
    FileSpan span;
    std::string replacement;
};

// A further place, "the block of line 4 is still open".
struct Note {
    std::string text;
    FileSpan span;  // file -1: of no place
};

struct Diagnostic {
    Level level = Level::ERROR;
    std::string code;  // "E27", "W10", "L1"; of messages without a number "E" and a name, as "Einclude"
    std::string text;  // the engine's own words
    FileSpan span;     // file -1: of no place
    std::vector<Expansion> through;  // calls that the place came out of, outermost first
    std::string expanded_line;       // shown where calls are involved
    std::size_t expanded_begin = 0;  // bytes [begin, end) of it are meant
    std::size_t expanded_end = 0;
    std::vector<std::string> advice;  // each one idea, in the composer's words
    std::vector<Note> notes;
    std::vector<Edit> edits;
    std::uint64_t repeats = 1;
};

}  // namespace vorn::kit
