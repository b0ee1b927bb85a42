#include "kit/diagnose/json_form.h"

#include <nlohmann/json.hpp>

#include "kit/diagnose/fix.h"
#include "kit/diagnose/shown_line.h"

// The shape is fixed by its version: fields may be added, none changes or goes.

namespace vorn::kit {

namespace {

using Json = nlohmann::ordered_json;

constexpr int VERSION = 1;

std::string dumped(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace); }

const char* level_name(Level level) {
    switch (level) {
        case Level::ERROR:
            return "error";
        case Level::WARNING:
            return "warning";
        case Level::LINT:
            return "lint";
    }
    return "";
}

const char* kind_name(SpliceKind kind) {
    switch (kind) {
        case SpliceKind::MACRO:
            return "macro";
        case SpliceKind::CONSTANT:
            return "constant";
        case SpliceKind::EQUATION:
            return "equation";
        case SpliceKind::TIME_VARIABLE:
            return "time";
    }
    return "";
}

Json place_json(const FileSpan& span, const SourceMap& map) {
    if (span.file < 0) return nullptr;
    const TextPlace begin = map.text_place(span);
    const TextPlace end = map.text_place({span.file, span.end, span.end});
    return {{"file", map.files()[static_cast<std::size_t>(span.file)].name},
            {"line", begin.line},
            {"column", begin.character},
            {"end_line", end.line},
            {"end_column", end.character},
            {"offset", span.begin},
            {"end_offset", span.end}};
}

Json excerpt_json(const ShownLine& excerpt) {
    const std::string_view text = excerpt.text;
    const std::size_t column = count_characters(text.substr(0, excerpt.begin)) + 1;
    const std::size_t marked = count_characters(text.substr(excerpt.begin, excerpt.end - excerpt.begin));
    return {{"text", excerpt.text}, {"column", column}, {"end_column", column + marked}};
}

Json source_json(const FileSpan& span, const SourceMap& map) {
    if (span.file < 0) return nullptr;
    const TextPlace place = map.text_place(span);
    return excerpt_json(shown_line(place.text, place.column, place.column + (span.end - span.begin)));
}

Json expansion_json(const Diagnostic& diagnostic, const SourceMap& map) {
    if (diagnostic.through.empty()) return nullptr;
    Json calls = Json::array();
    for (const Expansion& call : diagnostic.through) {
        calls.push_back(
            {{"kind", kind_name(call.kind)}, {"name", call.name}, {"place", place_json(call.call, map)}});
    }
    const ShownText lines =
        shown_text(diagnostic.expanded_line, diagnostic.expanded_begin, diagnostic.expanded_end);
    return {{"before", lines.before},
            {"line", excerpt_json(lines.line)},
            {"after", lines.after},
            {"calls", calls}};
}

Json notes_json(const std::vector<Note>& notes, const SourceMap& map) {
    Json list = Json::array();
    for (const Note& note : notes) {
        list.push_back({{"text", note.text}, {"place", place_json(note.span, map)}});
    }
    return list;
}

Json edits_json(const std::vector<Edit>& edits, const SourceMap& map) {
    Json list = Json::array();
    for (const Edit& edit : edits) {
        list.push_back({{"place", place_json(edit.span, map)}, {"replacement", edit.replacement}});
    }
    return list;
}

Json fix_json(const Diagnostic& diagnostic, const SourceMap& map) {
    const std::optional<Fix> fix = fix_of(diagnostic, map);
    if (!fix) return nullptr;
    Json json = {{"title", fix->title}, {"replacement", fix->replacement}};
    json.update(place_json(fix->span, map));
    return json;
}

Json diagnostic_json(const Diagnostic& diagnostic, const SourceMap& map) {
    return {{"level", level_name(diagnostic.level)},
            {"code", diagnostic.code},
            {"text", diagnostic.text},
            {"place", place_json(diagnostic.span, map)},
            {"source", source_json(diagnostic.span, map)},
            {"expansion", expansion_json(diagnostic, map)},
            {"notes", notes_json(diagnostic.notes, map)},
            {"advice", diagnostic.advice},
            {"edits", edits_json(diagnostic.edits, map)},
            {"fix", fix_json(diagnostic, map)},
            {"repeats", diagnostic.repeats}};
}

}  // namespace

std::string json_diagnostics(const std::vector<Diagnostic>& diagnostics, const SourceMap& map) {
    std::string text = "[";
    for (const Diagnostic& diagnostic : diagnostics) {
        text += (text.size() > 1 ? ",\n" : "\n") + dumped(diagnostic_json(diagnostic, map));
    }
    return text + "]";
}

std::string json_score(std::string_view name, bool is_accepted, const std::vector<Diagnostic>& diagnostics,
                       const SourceMap& map) {
    return "{\"score\": " + dumped(Json(name)) + ", \"accepted\": " + (is_accepted ? "true" : "false") +
           ", \"diagnostics\": " + json_diagnostics(diagnostics, map) + "}";
}

std::string json_report(const std::vector<std::string>& scores) {
    std::string text = "{\"version\": " + std::to_string(VERSION) + ", \"scores\": [";
    for (std::size_t at = 0; at < scores.size(); ++at) text += (at > 0 ? ",\n" : "\n") + scores[at];
    return text + "]}\n";
}

}  // namespace vorn::kit
