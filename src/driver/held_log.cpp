#include "driver/held_log.h"

#include <cstdlib>

#include <sys/stat.h>

#include "input/run_flags.h"

// Nobody who writes messages knows of the waiting: fllog is the stream to memory
// as long as it lasts.

namespace vorn {

namespace {

struct HeldLog {
    std::FILE* file = nullptr;  // the log itself; null: nothing is held
    std::FILE* memory = nullptr;
    char* text = nullptr;  // of that stream, complete once that is closed
    std::size_t size = 0;
};

HeldLog held;

bool is_regular(std::FILE* stream) {
    struct stat found = {};
    return fstat(fileno(stream), &found) == 0 && S_ISREG(found.st_mode);
}

// False: something did not find room. Where the last of it did not, closing
// succeeds, but there is no text.
bool close_memory() {
    const bool complete = std::ferror(held.memory) == 0;
    return std::fclose(held.memory) == 0 && complete && held.text != nullptr;
}

}  // namespace

bool hold_log() {
    if (fllog == nullptr || !is_regular(fllog)) return true;
    held.memory = open_memstream(&held.text, &held.size);
    if (held.memory == nullptr) return false;
    held.file = fllog;
    fllog = held.memory;
    return true;
}

std::FILE* held_log() { return held.file; }

bool release_log() {
    if (held.file == nullptr) return true;
    const bool complete = close_memory();
    fllog = held.file;
    std::fwrite(held.text, 1, held.size, fllog);
    std::free(held.text);
    held = {};
    return complete;
}

void drop_log() {
    if (held.file == nullptr) return;
    close_memory();
    std::fclose(held.file);
    std::free(held.text);
    held = {};
    fllog = nullptr;
}

}  // namespace vorn
