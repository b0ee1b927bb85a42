#include "kit/diagnose/text_form.h"

#include <algorithm>

// Bytes 10xxxxxx of UTF-8 continue a character: they count for no column and
// take no mark.

namespace vorn::kit {

namespace {

bool continues_character(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::size_t count_characters(std::string_view text) {
    std::size_t count = 0;
    for (const char c : text) count += continues_character(c) ? 0 : 1;
    return count;
}

const char* level_name(Level level) {
    switch (level) {
        case Level::ERROR:
            return "error";
        case Level::WARNING:
            return "warning";
        case Level::LINT:
            return "note";
    }
    return "";
}

// Blanks as wide as the text before the marks, then a mark a character.
std::string marks_under(std::string_view line, std::size_t begin, std::size_t end) {
    std::string marks;
    for (const char c : line.substr(0, begin)) {
        if (!continues_character(c)) marks += c == '\t' ? '\t' : ' ';
    }
    const std::size_t marked = begin < line.size() ? count_characters(line.substr(begin, end - begin)) : 0;
    return marks + std::string(marked > 0 ? marked : 1, '^');
}

std::string heading(const Diagnostic& diagnostic, const SourceMap& map) {
    std::string text;
    if (diagnostic.span.file >= 0) {
        const TextPlace place = map.text_place(diagnostic.span);
        text = map.files()[static_cast<std::size_t>(diagnostic.span.file)].name + ":" +
               std::to_string(place.line) + ":" +
               std::to_string(count_characters(place.text.substr(0, place.column)) + 1) + ": ";
    }
    return text + level_name(diagnostic.level) + ": " + diagnostic.text + " [" + diagnostic.code + "]\n";
}

std::string marked_line(std::string_view line, std::size_t begin, std::size_t end) {
    return std::string(line) + "\n" + marks_under(line, begin, end) + "\n";
}

}  // namespace

std::string text_form(const Diagnostic& diagnostic, const SourceMap& map) {
    std::string text = heading(diagnostic, map);
    if (diagnostic.span.file < 0) return text;
    const TextPlace place = map.text_place(diagnostic.span);
    const std::size_t length = diagnostic.span.end - diagnostic.span.begin;
    text += marked_line(place.text, place.column, std::min(place.column + length, place.text.size()));
    if (!diagnostic.through.empty()) {
        const auto at = static_cast<std::size_t>(diagnostic.expanded_pos);
        text += "expanded to:\n" + marked_line(diagnostic.expanded_line, at, at + 1);
    }
    return text;
}

}  // namespace vorn::kit
