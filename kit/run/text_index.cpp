#include "kit/run/text_index.h"

#include <algorithm>

// The beginnings of all lines, and the number of characters before each stretch of
// a few thousand bytes. So a place costs the same in a line of five megabytes and
// behind a million lines:
//
//     column = characters before the place - characters before its line

namespace vorn::kit {

namespace {

constexpr std::size_t STRETCH = 4096;  // bytes

}  // namespace

std::size_t count_characters(std::string_view text) {
    std::size_t count = 0;
    for (const char c : text) count += continues_character(c) ? 0 : 1;
    return count;
}

TextIndex::TextIndex(std::string_view text) : line_begins_{0}, character_counts_{0} {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
        line_begins_.push_back(at + 1);
    }
    for (std::size_t at = 0; at + STRETCH <= text.size(); at += STRETCH) {
        character_counts_.push_back(character_counts_.back() + count_characters(text.substr(at, STRETCH)));
    }
}

std::size_t TextIndex::line_of(std::size_t offset) const {
    const auto behind = std::upper_bound(line_begins_.begin(), line_begins_.end(), offset);
    return static_cast<std::size_t>(behind - line_begins_.begin()) - 1;
}

std::string_view TextIndex::line(std::string_view text, std::size_t line) const {
    const std::size_t begin = line_begins_[line];
    const bool is_last = line + 1 == line_begins_.size();
    const std::size_t end = is_last ? text.size() : line_begins_[line + 1] - 1;
    std::string_view whole = text.substr(begin, end - begin);
    if (whole.ends_with('\r')) whole.remove_suffix(1);
    return whole;
}

std::size_t TextIndex::characters_before(std::string_view text, std::size_t offset) const {
    const std::size_t stretch = offset / STRETCH;
    return character_counts_[stretch] +
           count_characters(text.substr(stretch * STRETCH, offset - stretch * STRETCH));
}

std::size_t TextIndex::characters(std::string_view text, std::size_t begin, std::size_t end) const {
    return characters_before(text, end) - characters_before(text, begin);
}

}  // namespace vorn::kit
