#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "kit/diagnose/from_messages.h"
#include "table_sources.h"

// What newcomers write, and what they are told. Each folder of mistakes/ is one:
// in.vorn, the files that it includes, and in `expected` a line for each thing that
// is said:
//
//     in.vorn:4:7: E27 "c4"                   what is marked, and the code
//     note in.vorn:1:1: "i1": the block ...   a further place
//     help: write `no` before note names
//
// Making the folder is all that adding one takes.

namespace vorn::kit {

namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

// The files of one folder, whose score can be changed.
class FolderSources final : public Sources {
public:
    explicit FolderSources(fs::path folder)
        : folder_(std::move(folder)), score(text_of(folder_ / "in.vorn")) {}

    std::optional<std::string> read(const std::string& name) override {
        if (name == "in.vorn") return score;
        if (!fs::is_regular_file(folder_ / name)) return std::nullopt;
        return text_of(folder_ / name);
    }

private:
    fs::path folder_;

public:
    std::string score;
};

std::string place_of(const FileSpan& span, const SourceMap& map) {
    if (span.file < 0) return "nowhere";
    const SourceFile& file = map.files()[static_cast<std::size_t>(span.file)];
    const TextPlace place = map.text_place(span);
    return file.name + ":" + std::to_string(place.line) + ":" + std::to_string(place.character) + ":";
}

std::string marked(const FileSpan& span, const SourceMap& map) {
    if (span.file < 0) return {};
    const std::string& text = map.files()[static_cast<std::size_t>(span.file)].text;
    return "\"" + text.substr(span.begin, span.end - span.begin) + "\"";
}

std::string summary(const std::vector<Diagnostic>& diagnostics, const SourceMap& map) {
    std::string text;
    for (const Diagnostic& one : diagnostics) {
        text += place_of(one.span, map) + " " + one.code + " " + marked(one.span, map);
        if (!one.through.empty()) {
            text += " expanded \"" +
                    one.expanded_line.substr(one.expanded_begin, one.expanded_end - one.expanded_begin) +
                    "\"";
        }
        text += "\n";
        for (const Note& note : one.notes) {
            text +=
                "note " + place_of(note.span, map) + " " + marked(note.span, map) + " " + note.text + "\n";
        }
        for (const std::string& advice : one.advice) text += "help: " + advice + "\n";
    }
    return text;
}

fs::path mistakes_folder() { return fs::path("tests/kit/mistakes"); }

std::vector<std::string> all_mistakes() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(mistakes_folder())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// The score with all edits of a diagnostic, the last in the text first.
std::string edited(std::string score, const Diagnostic& diagnostic) {
    std::vector<Edit> edits = diagnostic.edits;
    std::stable_sort(edits.begin(), edits.end(),
                     [](const Edit& a, const Edit& b) { return a.span.begin > b.span.begin; });
    for (const Edit& edit : edits) {
        if (edit.span.file == 0) {
            score.replace(edit.span.begin, edit.span.end - edit.span.begin, edit.replacement);
        }
    }
    return score;
}

}  // namespace

TEST(Mistakes, AreAtLeastFifty) { EXPECT_GE(all_mistakes().size(), 50U); }

TEST(Mistakes, AreAnsweredAtTheRightPlaceWithAdvice) {
    for (const std::string& name : all_mistakes()) {
        FolderSources sources(mistakes_folder() / name);
        const ScoreRun run = run_score("in.vorn", {}, sources);
        EXPECT_EQ(summary(from_messages(run), run.map), text_of(mistakes_folder() / name / "expected"))
            << name;
    }
}

// A cure that is called certain removes the mistake: the score is well, or its first
// mistake is another one, further on.
TEST(Mistakes, AreGoneWhenEdited) {
    int edits = 0;
    for (const std::string& name : all_mistakes()) {
        FolderSources sources(mistakes_folder() / name);
        const ScoreRun run = run_score("in.vorn", {}, sources);
        const std::vector<Diagnostic> before = from_messages(run);
        if (before.empty() || before[0].edits.empty() || before[0].edits[0].span.file != 0) continue;
        ++edits;
        sources.score = edited(sources.score, before[0]);
        const ScoreRun cured = run_score("in.vorn", {}, sources);
        const std::vector<Diagnostic> after = from_messages(cured);
        if (after.empty() || after[0].level != Level::ERROR) continue;
        const bool is_further_on = after[0].span.begin > before[0].span.begin;
        EXPECT_TRUE(is_further_on || after[0].code != before[0].code) << name << "\n" << sources.score;
    }
    EXPECT_GE(edits, 20);
}

}  // namespace vorn::kit
