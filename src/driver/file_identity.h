#pragma once

#include <cstdio>

#include <sys/stat.h>

// Which file a name or a stream stands for, whatever it is called.

namespace vorn {

struct FileIdentity {
    mode_t type = 0;  // S_IFREG and so on; 0: no file, or a stream in memory
    dev_t device = 0;
    ino_t number = 0;

    bool operator==(const FileIdentity&) const = default;
};

FileIdentity identity(std::FILE* stream);  // null: no file
FileIdentity identity(const char* name);

// Whether both are the same file of a disk. Devices and pipes may well be written twice.
bool is_same_file(const FileIdentity& a, const FileIdentity& b);

// Whether what is written to one is read from the other: the same file, pipe or disk.
// Terminals and other character devices have both directions for themselves.
bool gives_back(const FileIdentity& a, const FileIdentity& b);

}  // namespace vorn
