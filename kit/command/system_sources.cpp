#include "kit/command/system_sources.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>

// Files are read whole, up to one character more than the engine takes from what is no
// file for it; it then says so.

namespace vorn::kit {

const char* const STANDARD_INPUT = "<stdin>";

namespace {

constexpr std::size_t MAX_TEXT = 100'000'001;  // bytes

std::optional<std::string> read_stream(std::FILE* stream) {
    std::string text;
    char part[1 << 16];
    while (text.size() < MAX_TEXT) {
        const std::size_t wanted = std::min(sizeof part, MAX_TEXT - text.size());
        const std::size_t count = std::fread(part, 1, wanted, stream);
        text.append(part, count);
        if (count < wanted) break;
    }
    if (std::ferror(stream)) return std::nullopt;
    return text;
}

std::optional<std::string> read_path(const std::string& path) {
    std::FILE* const stream = std::fopen(path.c_str(), "rb");
    if (stream == nullptr) return std::nullopt;
    std::optional<std::string> text = read_stream(stream);
    std::fclose(stream);
    return text;
}

bool is_same_file(const std::string& a, const std::string& b) {
    struct stat one = {};
    struct stat other = {};
    return stat(a.c_str(), &one) == 0 && stat(b.c_str(), &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

}  // namespace

std::string source_name(const std::string& argument) { return argument == "-" ? STANDARD_INPUT : argument; }

std::optional<std::string> SystemSources::read(const std::string& name) {
    if (std::find(names_.begin(), names_.end(), name) == names_.end()) names_.push_back(name);
    if (name != STANDARD_INPUT) return read_path(name);
    if (!standard_input_) standard_input_ = read_stream(stdin);
    return standard_input_;
}

bool SystemSources::has_read(const std::string& path) const {
    return std::any_of(names_.begin(), names_.end(),
                       [&](const std::string& name) { return is_same_file(name, path); });
}

}  // namespace vorn::kit
