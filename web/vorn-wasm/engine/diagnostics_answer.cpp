#include "web/vorn-wasm/engine/diagnostics_answer.h"

#include "kit/diagnose/fix.h"
#include "kit/diagnose/shown_line.h"

// What kit/diagnose/json_form tells people's tools, in the form of this module's answers: places by
// numbers, and levels and kinds of calls, too. A test compares both for every score.

namespace vorn::web {

namespace {

// [text, first character, character behind], counted from 1.
void add_excerpt(JsonText& json, std::string_view name, const kit::ShownLine& shown) {
    const std::string_view text = shown.text;
    const std::size_t begin = kit::count_characters(text.substr(0, shown.begin)) + 1;
    const std::size_t marked = kit::count_characters(text.substr(shown.begin, shown.end - shown.begin));
    json.key(name).open('[').text(text).count(begin).count(begin + marked).close(']');
}

void add_source(JsonText& json, const kit::FileSpan& span, const kit::SourceMap& map) {
    if (span.file < 0) {
        json.key("source").raw("null");
        return;
    }
    const kit::TextPlace place = map.text_place(span);
    const std::size_t length = span.end - span.begin;
    add_excerpt(json, "source", kit::shown_line(place.text, place.column, place.column + length));
}

void add_calls(JsonText& json, const std::vector<kit::Expansion>& calls, const kit::SourceMap& map) {
    json.key("calls").open('[');
    for (const kit::Expansion& call : calls) {
        json.open('{').key("kind").number(static_cast<int>(call.kind)).key("name").text(call.name);
        add_place(json, "place", call.call, map);
        json.close('}');
    }
    json.close(']');
}

void add_expansion(JsonText& json, const kit::Diagnostic& diagnostic, const kit::SourceMap& map) {
    json.key("expansion");
    if (diagnostic.through.empty()) {
        json.raw("null");
        return;
    }
    const kit::ShownText lines =
        kit::shown_text(diagnostic.expanded_line, diagnostic.expanded_begin, diagnostic.expanded_end);
    json.open('{').key("before").texts(lines.before);
    add_excerpt(json, "line", lines.line);
    json.key("after").texts(lines.after);
    add_calls(json, diagnostic.through, map);
    json.close('}');
}

void add_notes(JsonText& json, const std::vector<kit::Note>& notes, const kit::SourceMap& map) {
    json.key("notes").open('[');
    for (const kit::Note& note : notes) {
        json.open('{').key("text").text(note.text);
        add_place(json, "place", note.span, map);
        json.close('}');
    }
    json.close(']');
}

void add_fix(JsonText& json, const kit::Diagnostic& diagnostic, const kit::SourceMap& map) {
    json.key("fix");
    const std::optional<kit::Fix> fix = kit::fix_of(diagnostic, map);
    if (!fix) {
        json.raw("null");
        return;
    }
    json.open('{').key("title").text(fix->title).key("replacement").text(fix->replacement);
    add_place(json, "place", fix->span, map);
    json.close('}');
}

void add_diagnostic(JsonText& json, const kit::Diagnostic& diagnostic, const kit::SourceMap& map) {
    json.open('{').key("level").number(static_cast<int>(diagnostic.level));
    json.key("code").text(diagnostic.code).key("text").text(diagnostic.text);
    add_place(json, "place", diagnostic.span, map);
    add_source(json, diagnostic.span, map);
    add_expansion(json, diagnostic, map);
    add_notes(json, diagnostic.notes, map);
    json.key("advice").texts(diagnostic.advice);
    add_fix(json, diagnostic, map);
    json.key("repeats").count(diagnostic.repeats).close('}');
}

}  // namespace

void add_place(JsonText& json, std::string_view name, const kit::FileSpan& span, const kit::SourceMap& map) {
    json.key(name);
    if (span.file < 0) {
        json.raw("null");
        return;
    }
    const kit::TextPlace begin = map.text_place(span);
    const kit::TextPlace end = map.text_place({span.file, span.end, span.end});
    json.open('[').count(static_cast<std::uint64_t>(span.file)).count(span.begin).count(span.end);
    json.count(begin.line).count(begin.character).count(end.line).count(end.character).close(']');
}

void add_diagnostics(JsonText& json, const std::vector<kit::Diagnostic>& diagnostics,
                     const kit::SourceMap& map) {
    json.key("diagnostics").open('[');
    for (const kit::Diagnostic& diagnostic : diagnostics) add_diagnostic(json, diagnostic, map);
    json.close(']');
}

}  // namespace vorn::web
