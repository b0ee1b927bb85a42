#include "kit/lint/findings.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

// A finding knows its place in the expanded text and leads from there to the file,
// as messages do. A comment on the line of that place may silence it.

namespace vorn::kit {

namespace {

constexpr std::size_t MAX_OF_A_KIND = 200;  // who has more of them needs no further place
constexpr std::string_view MARK = "vornkit: ignore";

bool is_code_character(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

// Whether `code` is one of the words of a list.
bool is_listed(std::string_view list, std::string_view code) {
    for (std::size_t at = list.find(code); at != std::string_view::npos; at = list.find(code, at + 1)) {
        const std::size_t end = at + code.size();
        const bool begins = at == 0 || !is_code_character(list[at - 1]);
        if (begins && (end == list.size() || !is_code_character(list[end]))) return true;
    }
    return false;
}

bool silences(std::string_view line, std::string_view code) {
    const std::size_t comment = line.find(';');
    if (comment == std::string_view::npos) return false;
    const std::size_t mark = line.find(MARK, comment);
    return mark != std::string_view::npos && is_listed(line.substr(mark + MARK.size()), code);
}

}  // namespace

std::string number_text(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

bool Findings::is_silenced(const FileSpan& span) {
    if (std::find(options_.ignored.begin(), options_.ignored.end(), code_) != options_.ignored.end())
        return true;
    if (span.file < 0) return false;
    const SourceFile& file = run_.map.files()[static_cast<std::size_t>(span.file)];
    const std::size_t line = file.index.line_of(static_cast<std::size_t>(span.begin));
    if (span.file != file_ || line != line_) {
        file_ = span.file;
        line_ = line;
        is_line_silenced_ = silences(file.index.line(file.text, line), code_);
    }
    return is_line_silenced_;
}

Diagnostic Findings::at(const FileSpan& span) const {
    Diagnostic diagnostic;
    diagnostic.level = Level::LINT;
    diagnostic.code = code_;
    diagnostic.span = span;
    return diagnostic;
}

Diagnostic Findings::at(const LinePlace& begin, const LinePlace& last) const {
    std::vector<Expansion> through;
    Diagnostic diagnostic = at(run_.map.find(begin, last, &through));
    if (through.empty()) return diagnostic;
    diagnostic.through = std::move(through);
    diagnostic.expanded_line = run_.expanded.line(begin.line);
    diagnostic.expanded_begin = static_cast<std::size_t>(begin.pos);
    diagnostic.expanded_end = static_cast<std::size_t>((last.line == begin.line ? last : begin).pos) + 1;
    return diagnostic;
}

// Dropped values give the engine's warnings of them their count, however many these are.
std::size_t Findings::most_of(const std::string& code) const {
    return MAX_OF_A_KIND + (code == "L12" ? run_.messages.size() : 0);
}

void Findings::add(Diagnostic diagnostic) {
    if (is_silenced(diagnostic.span)) return;
    if (++counts_[code_] > most_of(code_)) return;
    found_.push_back(std::move(diagnostic));
}

std::vector<Diagnostic> Findings::take() {
    for (const auto& [code, count] : counts_) {
        const std::size_t most = most_of(code);
        if (count <= most) continue;
        const auto last =
            std::find_if(found_.rbegin(), found_.rend(),
                         [&code = code](const Diagnostic& found) { return found.code == code; });
        last->advice.push_back("The same holds of further places: " + std::to_string(count - most) + ".");
    }
    return std::move(found_);
}

}  // namespace vorn::kit
