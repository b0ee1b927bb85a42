#pragma once

#include "input/reader.h"

namespace vorn {

// "[" term {operator term} "]", computed strictly from left to right. Terms are
// numbers, names of constants, "?", "@1" and "@2"; operators + - * / %. Returns 0 with
// pos behind the "]", or an error number with pos where reading stopped.
[[nodiscard]] int parse_vequation(double& value, const char* text, std::int32_t& pos,
                                  const WatchedLine& line);

}  // namespace vorn
