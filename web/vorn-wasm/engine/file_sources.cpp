#include "web/vorn-wasm/engine/file_sources.h"

#include <cstdio>

#include <sys/stat.h>

#include "driver/file_identity.h"

// The caller's file system lies in memory and every file has an end, so a file is
// read in one piece.

namespace vorn::web {

std::optional<std::string> FileSources::read(const std::string& name) {
    struct stat found = {};
    if (stat(name.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
    std::FILE* const stream = std::fopen(name.c_str(), "rb");
    if (stream == nullptr) return std::nullopt;
    std::string text(static_cast<std::size_t>(found.st_size), '\0');
    text.resize(std::fread(text.data(), 1, text.size(), stream));
    std::fclose(stream);
    return text;
}

bool FileSources::is_same(const std::string& name, const std::string& other) {
    return gives_back(identity(name.c_str()), identity(other.c_str()));
}

void write_text(const std::string& name, const std::string& text) {
    std::FILE* const stream = std::fopen(name.c_str(), "wb");
    if (stream == nullptr) return;
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fclose(stream);
}

}  // namespace vorn::web
