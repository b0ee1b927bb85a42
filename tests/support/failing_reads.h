#pragma once

#include <dlfcn.h>

#include <cerrno>
#include <cstdio>
#include <string>

// Lets a file fail while it is read. Replaces fopen for the whole test program,
// so it is included by the test alone. Example: "part.inc" gives all its bytes,
// but in the place of its end the disk fails:
//
//     failing_file = "part.inc";
//     ...
//     failing_file = "";

namespace vorn::test {

inline std::string failing_file;  // by the name that it is opened with; empty: none fails

inline ssize_t read_or_fail(void* file, char* bytes, std::size_t size) {
    const std::size_t got = std::fread(bytes, 1, size, static_cast<std::FILE*>(file));
    if (got > 0) return static_cast<ssize_t>(got);
    errno = EIO;
    return -1;
}

inline int close_file(void* file) { return std::fclose(static_cast<std::FILE*>(file)); }

}  // namespace vorn::test

extern "C" [[gnu::noinline]] std::FILE* fopen(const char* name, const char* mode) {
    using Open = std::FILE* (*)(const char*, const char*);
    const auto open = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "fopen"));
    std::FILE* const file = open(name, mode);
    if (file == nullptr || vorn::test::failing_file != name) return file;
    return fopencookie(file, mode, {vorn::test::read_or_fail, nullptr, nullptr, vorn::test::close_file});
}
