#include "kit/run/expanded_text.h"

#include <algorithm>

#include "input/skip.h"
#include "preproc/preprocessor.h"

// Lines follow each other in one text; a splice changes the last of them, as in the
// engine's own line. Beyond the limit lines are counted and not kept: nothing is
// then found in them.

namespace vorn::kit {

namespace {

constexpr std::size_t MAX_KEPT = std::size_t{64} << 20;  // bytes

bool is_conditional(const std::string& line) {
    std::int32_t pos = 0;
    skip_blanks(line.c_str(), pos);
    if (line.c_str()[pos] != '#') return false;
    return is_if(line.c_str(), pos + 1) || is_endif(line.c_str(), pos + 1);
}

// Behind the block comment that starts at `at`; comments of this kind nest.
std::size_t block_comment_end(const std::string& text, std::size_t at) {
    int depth = 0;
    while (at < text.size()) {
        const bool opens = text.compare(at, 2, "/*") == 0;
        const bool closes = text.compare(at, 2, "*/") == 0;
        at += opens || closes ? 2 : 1;
        depth += opens ? 1 : 0;
        depth -= closes ? 1 : 0;
        if (depth == 0) break;
    }
    return at;
}

// Behind the line that holds `at`.
std::size_t line_end(const Excerpt& excerpt, std::size_t at) {
    const auto next =
        std::upper_bound(excerpt.lines.begin(), excerpt.lines.end(), at,
                         [](std::size_t offset, const Excerpt::Line& line) { return offset < line.offset; });
    return next == excerpt.lines.end() ? excerpt.text.size() : next->offset;
}

void blank_comments(Excerpt& excerpt) {
    std::string& text = excerpt.text;
    for (std::size_t at = 0; at < text.size(); ++at) {
        CommentKind kind;
        if (!is_comment(text.c_str(), static_cast<std::int32_t>(at), kind)) continue;
        const std::size_t end =
            kind == CommentKind::LINE ? line_end(excerpt, at) : block_comment_end(text, at);
        std::fill(text.begin() + static_cast<std::ptrdiff_t>(at),
                  text.begin() + static_cast<std::ptrdiff_t>(end), ' ');
        at = end - 1;
    }
}

}  // namespace

LinePlace Excerpt::place(std::size_t offset) const {
    auto line = std::upper_bound(lines.begin(), lines.end(), offset,
                                 [](std::size_t at, const Line& one) { return at < one.offset; });
    if (line == lines.begin()) return {};
    --line;
    return {line->begin.line, line->begin.pos + static_cast<std::int32_t>(offset - line->offset)};
}

void ExpandedText::add_line(std::string_view text, bool is_read) {
    begins_.push_back(text_.size());
    if (text_.size() + text.size() > MAX_KEPT) return;
    text_ += text;
    if (!is_read || is_conditional(std::string(text))) {
        std::fill(text_.begin() + static_cast<std::ptrdiff_t>(begins_.back()), text_.end(), ' ');
    }
}

void ExpandedText::apply(const Splice& splice) {
    if (begins_.empty()) return;
    const std::size_t begin = begins_.back() + static_cast<std::size_t>(splice.start);
    const auto length = static_cast<std::size_t>(splice.end - splice.start);
    if (begin + length > text_.size()) return;
    text_.replace(begin, length, splice.inserted, splice.inserted_length);
}

std::string_view ExpandedText::line(std::uint64_t number) const {
    if (number == 0 || number > begins_.size()) return {};
    const std::size_t begin = begins_[number - 1];
    const std::size_t end = number == begins_.size() ? text_.size() : begins_[number];
    return std::string_view(text_).substr(begin, end - begin);
}

Excerpt ExpandedText::excerpt(const LinePlace& begin, const LinePlace& end) const {
    Excerpt excerpt;
    const std::uint64_t last = std::min(end.line, lines());
    for (std::uint64_t number = begin.line; number > 0 && number <= last; ++number) {
        std::string_view text = line(number);
        if (number == end.line) text = text.substr(0, static_cast<std::size_t>(end.pos));
        const std::size_t from = number == begin.line ? static_cast<std::size_t>(begin.pos) : 0;
        excerpt.lines.push_back({excerpt.text.size(), {number, static_cast<std::int32_t>(from)}});
        excerpt.text += text.substr(std::min(from, text.size()));
    }
    blank_comments(excerpt);
    return excerpt;
}

}  // namespace vorn::kit
