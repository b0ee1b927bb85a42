#pragma once

#include <cstdio>
#include <string>
#include <string_view>

// A file that appears whole or not at all: it is written under another name in
// the folder where it will stand, and renamed when it is complete.

namespace vorn::kit {

class AtomicFile {
public:
    AtomicFile() = default;
    ~AtomicFile();  // drops what was not kept; an older file stays
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // "-" is standard output. False, with error() set, when the folder does not take it.
    [[nodiscard]] bool open(const std::string& path);
    [[nodiscard]] bool write(std::string_view bytes);
    // What was written can be read under written_name().
    [[nodiscard]] bool flush();
    // Makes it the file `path`. False: the older file, if there was one, is still there.
    [[nodiscard]] bool keep();

    std::FILE* stream() const { return stream_; }
    // The name of the file while it is being written, for other programs that write it.
    const std::string& written_name() const { return temporary_.empty() ? path_ : temporary_; }
    const std::string& error() const { return error_; }

private:
    bool fail(const char* doing);
    void drop();

    std::string path_;
    std::string temporary_;  // empty: nothing to rename or to remove
    std::FILE* stream_ = nullptr;
    std::string error_;
};

// The whole of it in one call; false, with the reason in `error`.
[[nodiscard]] bool write_file(const std::string& path, std::string_view bytes, std::string& error);

// Removes the files that are being written; for handlers of signals.
void drop_unfinished_files();

}  // namespace vorn::kit
