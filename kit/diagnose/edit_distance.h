#pragma once

#include <cstddef>
#include <string_view>

namespace vorn::kit {

// How many letters must be put in, left out, changed or exchanged with their neighbour
// to make one word of the other (Damerau 1964, each place edited once).
[[nodiscard]] std::size_t edit_distance(std::string_view a, std::string_view b);

}  // namespace vorn::kit
