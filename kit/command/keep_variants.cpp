#include "kit/command/keep_variants.h"

#include <cstdio>
#include <filesystem>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/system_sources.h"

namespace vorn::kit {

namespace {

namespace fs = std::filesystem;

fs::path kept_path(const VaryPlan& plan, unsigned number, const std::string& folder) {
    const fs::path score = plan.score == "-" ? "score.vorn" : plan.score;
    const std::string name =
        score.stem().string() + "-" + std::to_string(number) + score.extension().string();
    return (folder.empty() ? score.parent_path() : fs::path(folder)) / name;
}

// The score's own text is as it was; with the value elsewhere all is one text.
std::string kept_text(const VaryPlan& plan, const ScoreRun& run) {
    return plan.variation.file == 0 ? run.map.files().front().text : run.map.joined_text();
}

Outcome keep(const VaryPlan& plan, unsigned number, const std::string& folder) {
    const ScoreRun run = run_variant(plan, number, NOWHERE);
    if (const std::string reason = refusal(plan, number, run); !reason.empty()) {
        complain("variant " + std::to_string(number) + " is refused: " + reason);
        return Outcome::REFUSED;
    }
    const std::string path = kept_path(plan, number, folder).string();
    const std::string text = kept_text(plan, run);
    std::error_code ignored;
    if (fs::exists(path, ignored) && SystemSources().read(path) != text) {
        return wrong_use("\"" + path + "\" is there already and says something else; it stays as it is");
    }
    std::string reason;
    if (!write_file(path, text, reason)) return wrong_use(reason);
    std::printf("%s\n", path.c_str());
    return Outcome::WELL;
}

}  // namespace

Outcome keep_variants(const VaryPlan& plan, const std::vector<unsigned>& numbers, const std::string& folder) {
    std::error_code error;
    if (!folder.empty()) fs::create_directories(folder, error);
    if (error) return wrong_use("cannot make the folder " + folder + ": " + error.message());
    if (plan.relative && plan.texts.size() > 1 && !folder.empty()) {
        return wrong_use(
            "the score's includes are looked up beside it, so its variants must be kept there: without -o");
    }
    Outcome outcome = Outcome::WELL;
    for (const unsigned number : numbers) outcome = std::max(outcome, keep(plan, number, folder));
    return outcome;
}

}  // namespace vorn::kit
