#include "kit/command/system_sources.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "driver/file_identity.h"
#include "kit/command/console.h"
#include "kit/command/temporary_file.h"

// Files are read whole; what has no end, up to one character more than the engine takes
// from what is no file for it. The engine then says so.

namespace vorn::kit {

const char* const STANDARD_INPUT = "<stdin>";

namespace {

constexpr std::size_t MAX_DEVICE_TEXT = 100'000'000;  // bytes
constexpr off_t MAX_FILE = 1'000'000'000;  // bytes; some copies of it are in memory at the same time

bool is_file(std::FILE* stream, struct stat& found) {
    return fstat(fileno(stream), &found) == 0 && S_ISREG(found.st_mode);
}

std::optional<std::string> read_until(std::FILE* stream, std::size_t most) {
    std::string text;
    char part[1 << 16];
    while (text.size() < most) {
        const std::size_t wanted = std::min(sizeof part, most - text.size());
        const std::size_t count = std::fread(part, 1, wanted, stream);
        text.append(part, count);
        if (count < wanted) break;
    }
    if (std::ferror(stream)) return std::nullopt;
    return text;
}

std::optional<std::string> read_stream(std::FILE* stream) {
    struct stat file = {};
    if (!is_file(stream, file)) return read_until(stream, MAX_DEVICE_TEXT + 1);
    if (file.st_size <= MAX_FILE) return read_until(stream, MAX_FILE);
    errno = EFBIG;
    return std::nullopt;
}

std::optional<std::string> read_path(const std::string& path) {
    std::FILE* const stream = std::fopen(path.c_str(), "rb");
    if (stream == nullptr) return std::nullopt;
    std::optional<std::string> text = read_stream(stream);
    std::fclose(stream);
    return text;
}

bool is_file(const std::string& name) {
    struct stat found = {};
    if (name == STANDARD_INPUT) return is_file(stdin, found);
    return stat(name.c_str(), &found) == 0 && S_ISREG(found.st_mode);
}

FileIdentity file_of(const std::string& name) {
    return name == STANDARD_INPUT ? identity(stdin) : identity(name.c_str());
}

}  // namespace

std::string source_name(const std::string& argument) { return argument == "-" ? STANDARD_INPUT : argument; }

std::optional<std::string> SystemSources::read(const std::string& name) {
    if (std::find(names_.begin(), names_.end(), name) == names_.end()) names_.push_back(name);
    if (name != STANDARD_INPUT) return read_path(name);
    if (!standard_input_) standard_input_ = read_stream(stdin);
    return standard_input_;
}

// A file that is open in memory would be a device.
std::FILE* SystemSources::open(const std::string& name, const std::string& text) {
    if (text.size() <= MAX_DEVICE_TEXT || !is_file(name)) return Sources::open(name, text);
    TemporaryFile file;  // loses its name at the end; the stream goes on reading it
    if (file.make(".vorn", text)) return std::fopen(file.name().c_str(), "rb");
    complain(file.error());
    return nullptr;
}

bool SystemSources::is_same(const std::string& name, const std::string& other) {
    return gives_back(file_of(name), file_of(other));
}

bool SystemSources::is_written(const std::string& name) {
    return gives_back(file_of(name), identity(stdout)) || gives_back(file_of(name), identity(stderr));
}

bool SystemSources::has_read(const std::string& path) const {
    const FileIdentity file = identity(path.c_str());
    return std::any_of(names_.begin(), names_.end(),
                       [&](const std::string& name) { return gives_back(file, file_of(name)); });
}

}  // namespace vorn::kit
