#pragma once

namespace vorn {

extern const char* const VERSION;

// "\nVorn (version, build date, build time)\n"
void print_version();

// The banner: version and file names. Not silenced by -s.
void print_info(const char* input, const char* output, const char* log, const char* expansion);

}  // namespace vorn
