#include "kit/diagnose/text_form.h"

#include "kit/diagnose/fix.h"
#include "kit/diagnose/shown_line.h"

// A diagnostic top down: where and what, the line with its mark, the expansion
// that the place came out of, further places, advice.

namespace vorn::kit {

namespace {

constexpr std::size_t SHOWN_CALLS = 5;  // of the calls that a place came out of

constexpr const char* BOLD = "\x1B[1m";
constexpr const char* RED = "\x1B[1;31m";
constexpr const char* YELLOW = "\x1B[1;33m";
constexpr const char* CYAN = "\x1B[1;36m";
constexpr const char* PLAIN = "\x1B[0m";

struct LevelStyle {
    const char* name;
    const char* color;
};

LevelStyle level_style(Level level) {
    switch (level) {
        case Level::ERROR:
            return {"error", RED};
        case Level::WARNING:
            return {"warning", YELLOW};
        case Level::LINT:
            return {"note", CYAN};
    }
    return {"", PLAIN};
}

std::string painted(const std::string& text, const char* color, const TextStyle& style) {
    return style.colors ? color + text + PLAIN : text;
}

std::string shown(std::string_view text, const TextStyle& style) {
    return style.escapes ? escaped(text) : std::string(text);
}

// 4294967295 as "4,294,967,295".
std::string grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) digits.insert(at -= 3, ",");
    return digits;
}

// "file:line:column: ", or nothing for what has no place.
std::string location(const FileSpan& span, const SourceMap& map, const TextStyle& style) {
    if (span.file < 0) return {};
    const TextPlace place = map.text_place(span);
    const std::string& name = map.files()[static_cast<std::size_t>(span.file)].name;
    const std::string text =
        shown(name, style) + ":" + std::to_string(place.line) + ":" + std::to_string(place.character) + ":";
    return painted(text, BOLD, style) + " ";
}

std::string marked_line(const ShownLine& plain, const char* color, const TextStyle& style) {
    const ShownLine excerpt = style.escapes ? escaped(plain) : plain;
    return excerpt.text + "\n" + painted(marks_below(excerpt), color, style) + "\n";
}

std::string marked_source(const FileSpan& span, const SourceMap& map, const char* color,
                          const TextStyle& style) {
    if (span.file < 0) return {};
    const TextPlace place = map.text_place(span);
    const auto length = static_cast<std::size_t>(span.end - span.begin);
    return marked_line(shown_line(place.text, place.column, place.column + length), color, style);
}

std::string call_name(const Expansion& expansion) {
    switch (expansion.kind) {
        case SpliceKind::MACRO:
            return "$" + expansion.name;
        case SpliceKind::CONSTANT:
            return "~" + expansion.name;
        case SpliceKind::EQUATION:
            return "an equation";
        case SpliceKind::TIME_VARIABLE:
            return "~" + expansion.name;
    }
    return expansion.name;
}

// "$A, in that of $B"; of a chain without an end, such as that of macros which call
// each other, the beginning.
std::string chain_of(const std::vector<Expansion>& calls) {
    std::string chain;
    for (std::size_t at = 0; at < std::min(calls.size(), SHOWN_CALLS); ++at) {
        chain += (at == 0 ? "" : ", in that of ") + call_name(calls[at]);
    }
    if (calls.size() <= SHOWN_CALLS) return chain;
    return chain + ", and " + grouped(calls.size() - SHOWN_CALLS) + " more";
}

std::string joined(const std::vector<std::string>& lines, const TextStyle& style) {
    std::string text;
    for (const std::string& line : lines) text += shown(line, style) + "\n";
    return text;
}

std::string expansion(const Diagnostic& diagnostic, const char* color, const TextStyle& style) {
    if (diagnostic.through.empty()) return {};
    const ShownText lines =
        shown_text(diagnostic.expanded_line, diagnostic.expanded_begin, diagnostic.expanded_end);
    return "in the expansion of " + shown(chain_of(diagnostic.through), style) + ":\n" +
           joined(lines.before, style) + marked_line(lines.line, color, style) + joined(lines.after, style);
}

std::string heading(const Diagnostic& diagnostic, const SourceMap& map, const LevelStyle& level,
                    const TextStyle& style) {
    std::string text = location(diagnostic.span, map, style) +
                       painted(level.name + std::string(":"), level.color, style) + " " +
                       shown(diagnostic.text, style) + " [" + diagnostic.code + "]";
    if (diagnostic.repeats > 1) text += " (" + grouped(diagnostic.repeats) + " times)";
    return text + "\n";
}

std::string note_form(const Note& note, const SourceMap& map, const TextStyle& style) {
    return location(note.span, map, style) + painted("note:", CYAN, style) + " " + shown(note.text, style) +
           "\n" + marked_source(note.span, map, CYAN, style);
}

std::string help_form(const std::string& advice, const TextStyle& style) {
    return painted("help:", CYAN, style) + " " + shown(advice, style) + "\n";
}

}  // namespace

std::string text_form(const Diagnostic& diagnostic, const SourceMap& map, const TextStyle& style) {
    const LevelStyle level = level_style(diagnostic.level);
    std::string text = heading(diagnostic, map, level, style) +
                       marked_source(diagnostic.span, map, level.color, style) +
                       expansion(diagnostic, level.color, style);
    for (const Note& note : diagnostic.notes) text += note_form(note, map, style);
    for (const std::string& advice : diagnostic.advice) text += help_form(advice, style);
    const std::string fix = untold_fix(diagnostic, map);
    return fix.empty() ? text : text + help_form(fix, style);
}

}  // namespace vorn::kit
