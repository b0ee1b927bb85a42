#include "kit/command/atomic_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "kit/command/signals_held_back.h"

// The temporary name is the file's own with a dot before it and six characters
// behind it, so that it lies on the same disk and a rename cannot be half done.
// What is not a regular file (a device, a pipe) is written as it is: it cannot
// be replaced.

namespace vorn::kit {

namespace {

constexpr std::size_t MAX_UNFINISHED = 16;
constexpr std::size_t MAX_PATH_LENGTH = 4096;

// The names of files that are being written; a slot that begins with 0 is free.
// Plain bytes, since a signal's handler reads them.
char unfinished[MAX_UNFINISHED][MAX_PATH_LENGTH];

char* find_slot(const char* name) {
    for (auto& slot : unfinished) {
        if (std::strcmp(slot, name) == 0) return slot;
    }
    return nullptr;
}

void note_unfinished(const std::string& name) {
    char* slot = find_slot("");
    if (slot != nullptr && name.size() < MAX_PATH_LENGTH) std::memcpy(slot, name.c_str(), name.size() + 1);
}

void forget_unfinished(const std::string& name) {
    if (char* slot = find_slot(name.c_str())) slot[0] = 0;
}

// The descriptor of a new file whose name is noted; negative when there is none. A signal
// that comes between the two would leave the file behind.
int make_unfinished(std::string& name) {
    const SignalsHeldBack held;
    const int descriptor = mkstemp(name.data());
    if (descriptor >= 0) note_unfinished(name);
    return descriptor;
}

std::string temporary_pattern(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    return path.substr(0, name) + "." + path.substr(name) + ".XXXXXX";
}

bool is_special_file(const std::string& path) {
    struct stat found = {};
    return stat(path.c_str(), &found) == 0 && !S_ISREG(found.st_mode);
}

// A new file gets the rights that the user's mask leaves it, an older one keeps its own.
mode_t rights_for(const std::string& path) {
    struct stat found = {};
    if (stat(path.c_str(), &found) == 0) return found.st_mode & 07777;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// A link is not replaced by the file but goes on to point at it.
std::string behind_links(const std::string& path) {
    char* resolved = realpath(path.c_str(), nullptr);
    if (resolved == nullptr) return path;
    std::string target = resolved;
    std::free(resolved);
    return target;
}

}  // namespace

AtomicFile::~AtomicFile() { drop(); }

bool AtomicFile::fail(const char* doing) {
    const std::string what = path_ == "-" ? "all to standard output" : path_;
    error_ = std::string("cannot ") + doing + " " + what + ": " + std::strerror(errno);
    drop();
    return false;
}

void AtomicFile::drop() {
    if (stream_ != nullptr && stream_ != stdout) std::fclose(stream_);
    stream_ = nullptr;
    if (temporary_.empty()) return;
    unlink(temporary_.c_str());
    forget_unfinished(temporary_);
    temporary_.clear();
}

bool AtomicFile::open(const std::string& path) {
    path_ = path == "-" ? path : behind_links(path);
    if (path_ == "-") {
        stream_ = stdout;
        return true;
    }
    if (is_special_file(path_)) {
        stream_ = std::fopen(path_.c_str(), "wb");
        return stream_ != nullptr || fail("write");
    }
    std::string name = temporary_pattern(path_);
    const int descriptor = make_unfinished(name);
    if (descriptor < 0) return fail("write");
    temporary_ = name;
    fchmod(descriptor, rights_for(path_));
    stream_ = fdopen(descriptor, "wb");
    if (stream_ == nullptr) close(descriptor);
    return stream_ != nullptr || fail("write");
}

bool AtomicFile::write(std::string_view bytes) {
    if (stream_ == nullptr) return false;
    if (bytes.empty()) return true;  // no bytes may be at no address
    return std::fwrite(bytes.data(), 1, bytes.size(), stream_) == bytes.size() || fail("write");
}

bool AtomicFile::flush() {
    if (stream_ == nullptr) return false;
    return (std::fflush(stream_) == 0 && !std::ferror(stream_)) || fail("write");
}

bool AtomicFile::keep() {
    if (!flush()) return false;
    const bool closed = stream_ == stdout || std::fclose(stream_) == 0;
    stream_ = nullptr;
    if (!closed) return fail("write");
    if (temporary_.empty()) return true;
    if (std::rename(temporary_.c_str(), path_.c_str()) != 0) return fail("replace");
    forget_unfinished(temporary_);
    temporary_.clear();
    return true;
}

bool write_file(const std::string& path, std::string_view bytes, std::string& error) {
    AtomicFile file;
    if (file.open(path) && file.write(bytes) && file.keep()) return true;
    error = file.error();
    return false;
}

void drop_unfinished_files() {
    for (auto& name : unfinished) {
        if (name[0] != 0) unlink(name);
    }
}

}  // namespace vorn::kit
