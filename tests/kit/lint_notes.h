#pragma once

#include "kit/lint/lint.h"
#include "tests/kit/table_sources.h"

// What lint finds in a text, each as "L1 4:7 bb4": code, line, column, what is marked.

namespace vorn::kit::test {

inline std::string marked_text(const SourceMap& map, const FileSpan& span) {
    if (span.file < 0) return "";
    const std::string& text = map.files()[static_cast<std::size_t>(span.file)].text;
    return text.substr(span.begin, span.end - span.begin);
}

inline std::string note_in_words(const Diagnostic& note, const SourceMap& map) {
    const TextPlace place = map.text_place(note.span);
    return note.code + " " + std::to_string(place.line) + ":" + std::to_string(place.column + 1) + " " +
           marked_text(map, note.span);
}

inline std::vector<std::string> notes_of(const std::string& score, const LintOptions& options = {}) {
    const ScoreRun run = run_text(score);
    std::vector<std::string> notes;
    for (const Diagnostic& note : lint(run, options)) notes.push_back(note_in_words(note, run.map));
    return notes;
}

inline std::vector<Diagnostic> found_in(const std::string& score, const LintOptions& options = {}) {
    return lint(run_text(score), options);
}

using Notes = std::vector<std::string>;

// A block of four events of one beat each; `statements` begin on line 4.
inline std::string four_events(const std::string& statements, int pfields = 4) {
    return "i1 = " + std::to_string(pfields) + ", 0, -4 {\np2 1\np3 1\n" + statements + "\n}\n";
}

}  // namespace vorn::kit::test
