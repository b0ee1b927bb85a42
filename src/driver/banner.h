#pragma once

#include <cstdio>

namespace vorn {

extern const char* const VERSION;

// "\nVorn (version, build date, build time)\n"
void print_version(std::FILE* stream);

// The banner: version and file names. Not silenced by -s.
void print_info(std::FILE* stream, const char* input, const char* output, const char* log,
                const char* expansion);

}  // namespace vorn
