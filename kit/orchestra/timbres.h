#pragma once

#include <string>

// Plain sounds, told apart by their partials and by how they begin and end.

namespace vorn::kit {

// The text of one Csound instrument: p4 is the frequency in hertz, p5 the amplitude.
// `rank` counts the instruments of a score from 0; no two ranks sound alike.
[[nodiscard]] std::string timbre_text(int number, int rank);

}  // namespace vorn::kit
