#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "kit/diagnose/fix.h"
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

// The score with the fix of a diagnostic.
std::string fixed(std::string score, const Fix& fix) {
    return score.replace(fix.span.begin, fix.span.end - fix.span.begin, fix.replacement);
}

// Where a place of the score stands when it has been fixed.
std::uint64_t moved(std::uint64_t place, const Fix& fix) {
    return place < fix.span.begin ? place : place + fix.replacement.size() - (fix.span.end - fix.span.begin);
}

// Empty: the mistake is gone by its fix, and what is left of the score are other ones, errors further on.
std::string problem_of_fix(FolderSources& sources, const Diagnostic& mistake, const Fix& fix) {
    const std::string before = sources.score;
    sources.score = fixed(before, fix);
    const ScoreRun run = run_score("in.vorn", {}, sources);
    const std::vector<Diagnostic> left = from_messages(run);
    const std::string problem = "left: " + summary(left, run.map) + "of\n" + sources.score;
    sources.score = before;
    for (const Diagnostic& one : left) {
        const bool is_further_on = one.span.file != 0 || one.span.begin > mistake.span.begin;
        const bool is_same = one.code == mistake.code && one.span.begin == moved(mistake.span.begin, fix);
        if (is_same || (one.level == Level::ERROR && !is_further_on)) return problem;
    }
    return {};
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

TEST(Mistakes, AreGoneWhenFixed) {
    int fixes = 0;
    for (const std::string& name : all_mistakes()) {
        FolderSources sources(mistakes_folder() / name);
        const ScoreRun run = run_score("in.vorn", {}, sources);
        for (const Diagnostic& mistake : from_messages(run)) {
            const auto fix = fix_of(mistake, run.map);
            if (!fix || fix->span.file != 0) continue;
            ++fixes;
            EXPECT_FALSE(fix->title.empty()) << name;
            EXPECT_EQ(problem_of_fix(sources, mistake, *fix), "") << name << ": " << fix->title;
        }
    }
    EXPECT_GE(fixes, 60);
}

}  // namespace vorn::kit
