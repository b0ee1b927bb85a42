#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>

// Stands before every source of a build for Windows: what POSIX or C++ declares and
// MinGW does not.

extern "C" {

#define getc_unlocked(stream) _fgetc_nolock(stream)
#define putc_unlocked(character, stream) _fputc_nolock(character, stream)

// As POSIX has it; the text is there when the stream has been closed.
std::FILE* open_memstream(char** text, std::size_t* size);

// With st_dev and st_ino that tell files apart.
int vorn_fstat(int descriptor, struct stat* found);
#define fstat(descriptor, found) vorn_fstat(descriptor, found)
}

namespace std {

// Only pages would be larger than what malloc aligns to, and Windows is asked for none.
inline void* aligned_alloc(size_t, size_t size) { return malloc(size); }

}  // namespace std
