#include "kit/diagnose/shown_line.h"

#include <algorithm>

#include "input/terminal_text.h"
#include "kit/run/text_index.h"

// Long lines are cut on both sides of the mark, between characters:
//
//     ...60 62 64 c4 67 69...
//                 ^^

namespace vorn::kit {

namespace {

constexpr std::size_t LONGEST_LINE = 160;  // bytes that are shown whole
constexpr std::size_t BEFORE = 60;         // bytes before the mark in a line that is cut
constexpr std::size_t FROM_MARK = 100;     // bytes from the mark on
constexpr std::string_view CUT = "...";
constexpr int LINES_AROUND = 3;  // on each side of the marked one

std::size_t character_start(std::string_view line, std::size_t at) {
    while (at > 0 && at < line.size() && continues_character(line[at])) --at;
    return at;
}

std::size_t line_begin(std::string_view text, std::size_t at) {
    const std::size_t newline = at > 0 ? text.rfind('\n', at - 1) : std::string_view::npos;
    return newline == std::string_view::npos ? 0 : newline + 1;
}

// Without blanks at its end.
std::string_view visible(std::string_view line) {
    return line.substr(0, line.find_last_not_of(" \t\r\n") + 1);
}

std::string other_line(std::string_view line) { return shown_line(visible(line), 0, 0).text; }

void append_escaped(std::string& text, std::string_view bytes) {
    constexpr char DIGITS[] = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {'\\', 'x', DIGITS[byte >> 4], DIGITS[byte & 15]};
    }
}

}  // namespace

ShownLine shown_line(std::string_view line, std::size_t begin, std::size_t end) {
    begin = std::min(begin, line.size());
    end = std::clamp(end, begin, line.size());
    if (line.size() <= LONGEST_LINE) return {std::string(line), begin, end};
    const std::size_t first = begin > BEFORE ? character_start(line, begin - BEFORE) : 0;
    const std::size_t last = character_start(line, std::min(begin + FROM_MARK, line.size()));
    ShownLine excerpt;
    if (first > 0) excerpt.text = CUT;
    excerpt.begin = excerpt.text.size() + begin - first;
    excerpt.end = excerpt.text.size() + std::min(end, last) - first;
    excerpt.text += line.substr(first, last - first);
    if (last < line.size()) excerpt.text += CUT;
    return excerpt;
}

ShownText shown_text(std::string_view text, std::size_t begin, std::size_t end) {
    begin = std::min(begin, text.size());
    std::size_t first = line_begin(text, begin);
    std::size_t last = std::min(text.find('\n', begin), text.size());
    ShownText shown;
    const std::size_t behind_mark = std::min(std::max(end, begin), last);
    const std::size_t behind =
        std::max(first + visible(text.substr(first, last - first)).size(), behind_mark);
    shown.line = shown_line(text.substr(first, behind - first), begin - first, behind_mark - first);
    for (int line = 0; line < LINES_AROUND && first > 0; ++line) {
        const std::size_t other = line_begin(text, first - 1);
        shown.before.insert(shown.before.begin(), other_line(text.substr(other, first - 1 - other)));
        first = other;
    }
    for (int line = 0; line < LINES_AROUND && last < text.size(); ++line) {
        const std::size_t next = last + 1;
        last = std::min(text.find('\n', next), text.size());
        shown.after.push_back(other_line(text.substr(next, last - next)));
    }
    return shown;
}

std::string escaped(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        const TerminalCharacter character = terminal_character(text.data() + at, text.size() - at);
        const std::string_view bytes = text.substr(at, character.size);
        if (character.is_escaped) {
            append_escaped(shown, bytes);
        } else {
            shown += bytes;
        }
        at += character.size;
    }
    return shown;
}

ShownLine escaped(const ShownLine& excerpt) {
    const std::string_view text = excerpt.text;
    const std::string before = escaped(text.substr(0, excerpt.begin));
    const std::string marked = escaped(text.substr(excerpt.begin, excerpt.end - excerpt.begin));
    return {before + marked + escaped(text.substr(excerpt.end)), before.size(),
            before.size() + marked.size()};
}

std::string marks_below(const ShownLine& excerpt) {
    const std::string_view text = excerpt.text;
    std::string marks;
    for (const char c : text.substr(0, excerpt.begin)) {
        if (!continues_character(c)) marks += c == '\t' ? '\t' : ' ';
    }
    const std::size_t marked = count_characters(text.substr(excerpt.begin, excerpt.end - excerpt.begin));
    return marks + std::string(std::max<std::size_t>(marked, 1), '^');
}

}  // namespace vorn::kit
