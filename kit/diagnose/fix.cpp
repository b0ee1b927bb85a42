#include "kit/diagnose/fix.h"

#include <algorithm>

#include "kit/diagnose/foreign_characters.h"

// Edits become one change by taking the text between them along:
//
//     ra(T 0,5 60 0,5 72)     edits of both "0,5" are the change of "0,5 60 0,5"

namespace vorn::kit {

namespace {

constexpr std::size_t LONGEST_QUOTE = 40;  // bytes of a text that a title repeats

std::string_view file_text(const FileSpan& span, const SourceMap& map) {
    return map.files()[static_cast<std::size_t>(span.file)].text;
}

std::string_view original(const FileSpan& span, const SourceMap& map) {
    return file_text(span, map).substr(span.begin, span.end - span.begin);
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string quoted(std::string_view text) { return "`" + std::string(text) + "`"; }

// What to write in the place of something that has a name.
std::string title_with(std::string_view replacement, const std::string& instead_of) {
    if (replacement.empty()) return "leave out " + instead_of;
    if (replacement == "\n") return "begin a new line instead of " + instead_of;
    if (trimmed(replacement).empty()) return "write a blank instead of " + instead_of;
    return "write " + quoted(replacement) + " instead of " + instead_of;
}

std::string title_of(std::string_view before, std::string_view after) {
    const ForeignCharacter foreign = foreign_character(before);
    if (foreign.code != 0) return title_with(after, "the " + foreign.name);
    const std::string_view kept = trimmed(after).empty() ? after : trimmed(after);
    if (!trimmed(before).empty()) return title_with(kept, quoted(trimmed(before)));
    return trimmed(after).empty() ? "begin a new line here" : "write " + quoted(trimmed(after)) + " here";
}

// What an advice says that tells of this replacement.
std::string_view words_for(std::string_view replacement) {
    if (!trimmed(replacement).empty()) return trimmed(replacement);
    if (replacement.find('\n') != std::string_view::npos) return "line of its own";
    return replacement.empty() ? "leave" : "blank";
}

bool is_said(std::string_view words, const std::vector<std::string>& advice) {
    return std::any_of(advice.begin(), advice.end(),
                       [words](const std::string& one) { return one.find(words) != std::string::npos; });
}

std::vector<Edit> in_order(std::vector<Edit> edits) {
    std::stable_sort(edits.begin(), edits.end(),
                     [](const Edit& a, const Edit& b) { return a.span.begin < b.span.begin; });
    return edits;
}

// Whether each begins behind the one before it, in the same file.
bool fit_together(const std::vector<Edit>& edits) {
    for (std::size_t at = 1; at < edits.size(); ++at) {
        if (edits[at].span.file != edits[0].span.file || edits[at].span.begin < edits[at - 1].span.end) {
            return false;
        }
    }
    return !edits.empty() && edits[0].span.file >= 0;
}

}  // namespace

std::optional<Fix> fix_of(const Diagnostic& diagnostic, const SourceMap& map) {
    const std::vector<Edit> edits = in_order(diagnostic.edits);
    if (!fit_together(edits)) return std::nullopt;
    Fix fix = {edits[0].span, edits[0].replacement, {}};
    for (std::size_t at = 1; at < edits.size(); ++at) {
        fix.replacement += std::string(original({fix.span.file, fix.span.end, edits[at].span.begin}, map)) +
                           edits[at].replacement;
        fix.span.end = edits[at].span.end;
    }
    const std::string_view whole = original(fix.span, map);
    const bool is_short = std::max(whole.size(), fix.replacement.size()) <= LONGEST_QUOTE;
    fix.title = is_short && foreign_character(whole).code == 0
                    ? title_of(whole, fix.replacement)
                    : title_of(original(edits[0].span, map), edits[0].replacement);
    return fix;
}

std::string untold_fix(const Diagnostic& diagnostic, const SourceMap& map) {
    const std::optional<Fix> fix = fix_of(diagnostic, map);
    if (!fix) return {};
    const bool is_told = std::all_of(
        diagnostic.edits.begin(), diagnostic.edits.end(),
        [&diagnostic](const Edit& edit) { return is_said(words_for(edit.replacement), diagnostic.advice); });
    return is_told ? std::string() : fix->title;
}

}  // namespace vorn::kit
