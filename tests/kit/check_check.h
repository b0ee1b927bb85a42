#pragma once

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "kit/diagnose/explanation_form.h"
#include "kit/diagnose/fix.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/json_form.h"
#include "kit/diagnose/text_form.h"
#include "kit/lint/lint.h"
#include "tests/kit/table_sources.h"

// What must hold of all that is told of any score, well or not: the JSON is well
// formed, each code is explained, places and marks lie within the lines that they are
// of, a fix lies within its file, and a second run tells the same.

namespace vorn::kit::test {

struct Told {
    ScoreRun run;
    std::vector<Diagnostic> diagnostics;
};

inline Told tell(const std::map<std::string, std::string>& inputs) {
    TableSources sources(inputs);
    RunOptions options;
    options.relative = true;
    LintOptions lint;
    lint.midi = true;
    Told told = {run_score("in.vorn", options, sources), {}};
    told.diagnostics = from_messages(told.run);
    add_lint(told.diagnostics, told.run, lint);
    return told;
}

inline std::string text_of(const Told& told) {
    std::string text;
    for (const Diagnostic& one : told.diagnostics) {
        text += text_form(one, told.run.map) + text_form(one, told.run.map, {true, true});
    }
    return text;
}

inline std::string json_of(const Told& told) {
    return json_report({json_score("in.vorn", told.run.status == 0, told.diagnostics, told.run.map)});
}

// Columns [column, end_column) of a text.
inline std::string excerpt_problem(const nlohmann::json& excerpt) {
    const std::size_t length = count_characters(excerpt["text"].get<std::string>());
    const bool is_in_order = excerpt["column"] >= 1 && excerpt["column"] <= excerpt["end_column"];
    return is_in_order && excerpt["end_column"] <= length + 1 ? "" : "a mark lies beyond its line";
}

// Line and column of the end that begins with `end`, "" or "end_".
inline bool is_in_file(const nlohmann::json& place, const std::string& end, const std::string& text) {
    const TextIndex index(text);
    const auto offset = place[end + "offset"].get<std::size_t>();
    if (offset > text.size()) return false;
    const std::size_t line = index.line_of(offset);
    const std::string_view whole = index.line(text, line);
    return place[end + "line"] == line + 1 && place[end + "column"] >= 1 &&
           place[end + "column"] <= count_characters(whole) + 2;  // its line feed may be meant
}

inline std::string place_problem(const nlohmann::json& place, const SourceMap& map) {
    if (place.is_null()) return {};
    for (const SourceFile& file : map.files()) {
        if (file.name != place["file"]) continue;
        const bool is_well = is_in_file(place, "", file.text) && is_in_file(place, "end_", file.text) &&
                             place["offset"] <= place["end_offset"];
        return is_well ? "" : "a place lies beyond its line: " + place.dump();
    }
    return "a place is of no file: " + place.dump();
}

inline std::string diagnostic_problem(const nlohmann::json& one, const SourceMap& map) {
    std::string problem = place_problem(one["place"], map);
    if (problem.empty() && !one["source"].is_null()) problem = excerpt_problem(one["source"]);
    if (problem.empty() && !one["expansion"].is_null()) problem = excerpt_problem(one["expansion"]["line"]);
    for (const nlohmann::json& note : one["notes"]) {
        if (problem.empty()) problem = place_problem(note["place"], map);
    }
    if (problem.empty()) problem = place_problem(one["fix"], map);
    const auto explanation = find_explanation(one["code"].get_ref<const std::string&>());
    if (!explanation) return "no explanation of " + one["code"].dump();
    if (explanation_text(*explanation).empty()) return "an empty explanation of " + one["code"].dump();
    const auto data = nlohmann::json::parse(explanations_json({*explanation}), nullptr, false);
    return data.is_discarded() ? "the explanation's JSON is not well formed" : problem;
}

// Empty when all is well. The score is "in.vorn".
inline std::string check_problem(const std::map<std::string, std::string>& inputs) {
    const Told told = tell(inputs);
    const std::string text = text_of(told);
    const std::string json = json_of(told);
    const auto report = nlohmann::json::parse(json, nullptr, false);
    if (report.is_discarded()) return "the JSON is not well formed";
    for (const nlohmann::json& one : report["scores"][0]["diagnostics"]) {
        const std::string problem = diagnostic_problem(one, told.run.map);
        if (!problem.empty()) return problem;
    }
    const bool has_error = std::any_of(told.diagnostics.begin(), told.diagnostics.end(),
                                       [](const Diagnostic& one) { return one.level == Level::ERROR; });
    if (told.run.status != 0 && !has_error) return "the score is refused without an error";
    if (told.run.status == 0 && has_error) return "the score is accepted with an error";
    const Told again = tell(inputs);
    return text == text_of(again) && json == json_of(again) ? "" : "two runs tell different things";
}

}  // namespace vorn::kit::test
