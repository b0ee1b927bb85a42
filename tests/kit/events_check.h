#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "kit/events/events_csv.h"
#include "kit/events/events_json.h"
#include "tests/kit/table_sources.h"

// What must hold of the tables of any score, well or not: the JSON is well formed, its
// columns are of one length, the CSV has as many lines and equal fields in each, and
// the written forms are those of the Csound score that the same run writes.

namespace vorn::kit::test {

class TextOf final : public TextSink {
public:
    bool take(std::string_view piece) override {
        text += piece;
        return true;
    }
    std::string text;
};

template <typename Write>
std::string text_of(Write write, const ScoreRun& run, const EventsOptions& options = {}) {
    TextOf sink;
    return write(run, options, sink) ? sink.text : "";
}

// A score with one blank between any two words of a line.
inline std::string with_single_blanks(const std::string& score) {
    std::istringstream lines(score);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        for (std::string word; words >> word;) text += word + " ";
        text += "\n";
    }
    return text;
}

// The lines of a block as the score has them, from its written forms.
inline std::string lines_of_block(const nlohmann::json& block) {
    const std::string begin = "i" + block["instrument"].dump() + " ";
    std::vector<std::string> lines(block["count"].get<std::size_t>(), begin);
    const auto add = [&](const std::string& name) {
        for (std::size_t row = 0; row < lines.size(); ++row) {
            const nlohmann::json& written = block["events"][name][row];
            if (!written.is_null()) lines[row] += written.get<std::string>() + " ";
        }
    };
    add("start_written");
    add("duration_written");
    for (const nlohmann::json& field : block["fields"]) {
        if (field["pfield"] >= 4) add("p" + field["pfield"].dump() + "_written");
    }
    std::string text =
        ";I-block #" + block["block_in_score"].dump() + " (i" + block["instrument"].dump() + "): \n";
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

inline std::string json_problem(const nlohmann::json& piece) {
    if (piece.is_discarded()) return "the JSON is not well formed";
    for (const nlohmann::json& block : piece["blocks"]) {
        for (const auto& [name, column] : block["events"].items()) {
            if (column.size() != block["count"]) return "column " + name + " has another length";
        }
    }
    return {};
}

inline std::string csv_problem(const std::string& table, const nlohmann::json& piece) {
    std::size_t rows = 1;
    for (const nlohmann::json& block : piece["blocks"]) rows += block["count"].get<std::size_t>();
    std::istringstream lines(table);
    std::ptrdiff_t commas = -1;
    for (std::string line; std::getline(lines, line); --rows) {
        const auto count = std::count(line.begin(), line.end(), ',');
        if (commas >= 0 && count != commas) return "a line of the CSV has another number of fields: " + line;
        commas = count;
    }
    return rows == 0 ? "" : "the CSV has another number of lines";
}

inline std::string score_problem(const std::string& score, const nlohmann::json& piece) {
    const std::string text = with_single_blanks(score);
    std::size_t at = 0;
    for (const nlohmann::json& block : piece["blocks"]) {
        if (block["count"] == 0) continue;
        const std::string lines = lines_of_block(block);
        at = text.find(lines, at);
        if (at == std::string::npos) return "the score does not have\n" + lines;
        at += lines.size();
    }
    return {};
}

// Where a run may write its score; goes away with the process.
class ScoreFile {
public:
    ScoreFile() {
        const char* const folder = std::getenv("TMPDIR");
        name_ = std::string(folder != nullptr ? folder : "/tmp") + "/vorn-events-" + std::to_string(getpid());
    }
    ~ScoreFile() { std::filesystem::remove(name_); }
    const std::string& name() const { return name_; }
    std::string text() const {
        std::ifstream file(name_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::string name_;
};

// Empty when all is well. The score is "in.vorn".
inline std::string events_problem(const std::map<std::string, std::string>& inputs) {
    const ScoreFile score;
    TableSources sources(inputs);
    RunOptions options;
    options.output = score.name();
    const ScoreRun run = run_score("in.vorn", options, sources);
    const auto piece = nlohmann::json::parse(text_of(write_events_json, run), nullptr, false);
    const auto with_rests = nlohmann::json::parse(text_of(write_events_json, run, {true}), nullptr, false);
    std::string problem = json_problem(piece);
    if (problem.empty()) problem = json_problem(with_rests);
    if (problem.empty()) problem = csv_problem(text_of(write_events_csv, run), piece);
    if (problem.empty()) problem = csv_problem(text_of(write_events_csv, run, {true}), with_rests);
    if (problem.empty() && run.status == 0) problem = score_problem(score.text(), piece);
    return problem;
}

}  // namespace vorn::kit::test
