#include "kit/events/table_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

// The buffer is as large as what a disk likes to take at once; numbers are written into it
// where they will stand, and nothing is copied twice.

namespace vorn::kit {

namespace {

constexpr std::size_t BUFFER_SIZE = std::size_t{1} << 18;
constexpr std::size_t NUMBER_SIZE = 32;  // of any float or 64-bit number

}  // namespace

TableText::TableText(TextSink& sink) : sink_(sink), buffer_(BUFFER_SIZE, '\0') {}

void TableText::hand_on() {
    if (takes_more_ && size_ > 0) takes_more_ = sink_.take({buffer_.data(), size_});
    size_ = 0;
}

char* TableText::space(std::size_t size) {
    if (size_ + size > buffer_.size()) hand_on();
    return buffer_.data() + size_;
}

void TableText::text(std::string_view text) {
    while (!text.empty()) {
        if (size_ == buffer_.size()) hand_on();
        const std::size_t count = std::min(text.size(), buffer_.size() - size_);
        std::memcpy(buffer_.data() + size_, text.data(), count);
        size_ += count;
        text.remove_prefix(count);
    }
}

void TableText::number(std::uint64_t value) {
    char* const to = space(NUMBER_SIZE);
    advance(std::to_chars(to, to + NUMBER_SIZE, value).ptr);
}

void TableText::number(float value, std::string_view otherwise) {
    if (!std::isfinite(value)) {
        text(otherwise);
        return;
    }
    char* const to = space(NUMBER_SIZE);
    advance(std::to_chars(to, to + NUMBER_SIZE, value).ptr);
}

bool TableText::finish() {
    hand_on();
    return takes_more_;
}

}  // namespace vorn::kit
