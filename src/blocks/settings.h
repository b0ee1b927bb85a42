#pragma once

#include <cstdint>

#include "input/reader.h"

// The setting commands, all of the form NAME "(" value ")". pos rests behind
// the name on entry and behind ")" on success.

namespace vorn {

// White space on the line, then "(": pos rests on it. Error 96.
[[nodiscard]] int good_cmd_format(const char* text, std::int32_t& pos);

[[nodiscard]] int set_rand_seed(Reader& reader);  // "rs": 0 to 65535, error 29
[[nodiscard]] int set_samp_rate(Reader& reader);  // "sr": error 65
[[nodiscard]] int set_rand_dev(Reader& reader);   // "rd": MAX_DEV, 0 to 100, error 28, warning 26
[[nodiscard]] int set_rand_dev2(Reader& reader);  // "dv": MAX_DEV2, likewise
[[nodiscard]] int set_pfactor(Reader& reader);    // "pf": PFACTOR, errors 125, 126

}  // namespace vorn
