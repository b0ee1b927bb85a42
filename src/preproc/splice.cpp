#include "preproc/splice.h"

#include <algorithm>
#include <cstring>

// The one place where the preprocessor changes the length of a text, and so the
// one place that keeps it within its buffer:
//
//     "re $A 60", 3, 5, "1 2"   ->   "re 1 2 60"

namespace vorn {

bool splice(char* text, std::int32_t start, std::int32_t end, const char* inserted) {
    const std::size_t length = std::strlen(inserted);
    const std::size_t rest = std::strlen(text + end);
    if (static_cast<std::size_t>(start) + length + rest >= LINE_SIZE) return false;
    std::memmove(text + start + length, text + end, rest + 1);
    std::copy_n(inserted, length, text + start);
    return true;
}

void tell_splice(const WatchedLine& line, SpliceKind kind, const char* name, std::int32_t start,
                 std::int32_t end, const char* inserted) {
    if (line.observer == nullptr) return;
    line.observer->on_splice({kind, line.number, start, end, inserted, std::strlen(inserted), name});
}

}  // namespace vorn
