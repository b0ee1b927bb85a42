#include "driver/file_identity.h"

// A file is told by its number and that of the device on which it stands.

namespace vorn {

namespace {

FileIdentity identity_of(const struct stat& found) {
    return {found.st_mode & S_IFMT, found.st_dev, found.st_ino};
}

}  // namespace

FileIdentity identity(std::FILE* stream) {
    struct stat found = {};
    if (stream == nullptr || fstat(fileno(stream), &found) != 0) return {};
    return identity_of(found);
}

FileIdentity identity(const char* name) {
    struct stat found = {};
    if (stat(name, &found) != 0) return {};
    return identity_of(found);
}

bool is_same_file(const FileIdentity& a, const FileIdentity& b) {
    return a.type == S_IFREG && gives_back(a, b);
}

bool gives_back(const FileIdentity& a, const FileIdentity& b) {
    const bool keeps_text = a.type == S_IFREG || a.type == S_IFIFO || a.type == S_IFBLK;
    return keeps_text && a == b;
}

}  // namespace vorn
