#pragma once

#include <string>
#include <string_view>

// Note names as other programs and languages write them.

namespace vorn::kit {

// A letter from a to g, accidentals, an octave or none: as Vorn writes it.
[[nodiscard]] bool is_note_name(std::string_view word);

// The same note as Vorn writes it: "f#4" and "fis4" are "fs4", "C-4" is "c4", "h3" is
// "b3". Empty when the word is no note that is known from elsewhere.
[[nodiscard]] std::string note_from_elsewhere(std::string_view word);

// The octave behind a note name's letter and accidentals; -1: none.
[[nodiscard]] int octave_of(std::string_view word);

}  // namespace vorn::kit
