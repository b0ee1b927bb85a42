#include "kit/command/vary_folder.h"

#include <filesystem>

#include "kit/command/atomic_file.h"
#include "kit/command/system_sources.h"
#include "kit/vary/fingerprint.h"
#include "kit/vary/sheet.h"
#include "kit/vary/workflow.h"

// A small file marks a folder as ours; what has files and no mark is somebody's work
// and is left alone.

namespace vorn::kit {

namespace {

namespace fs = std::filesystem;

constexpr const char* MARK_FILE = "vary.json";
const std::string MARK_BEGIN = "{\n \"made by\": \"vornkit vary\"";

// Whose variants the folder holds: the way from it to the score, which stays the same when
// both are moved.
std::string owner_of(const VaryPlan& plan) {
    std::error_code ignored;
    const std::string name =
        plan.score == "-" ? plan.score : fs::proximate(plan.score, plan.folder, ignored).string();
    return ",\n \"score\": \"" + fingerprint({name}) + "\"";
}

std::string mark(const VaryPlan& plan) {
    return MARK_BEGIN + owner_of(plan) + ",\n \"inputs\": \"" + plan.inputs + "\"\n}\n";
}

// Empty: it is empty, or was made for this score.
std::string reason_against_folder(const VaryPlan& plan) {
    std::error_code error;
    if (fs::is_empty(plan.folder, error) || error) return {};
    const std::string text = SystemSources().read(plan.folder + "/" + MARK_FILE).value_or("");
    if (!text.starts_with(MARK_BEGIN)) return "holds other files; give a new folder";
    const bool is_of_score = text.find(owner_of(plan)) != std::string::npos;
    return is_of_score ? "" : "holds the variants of another score; give a new folder";
}

// As a shell takes it: as it is, or between apostrophes.
std::string shell_word(const std::string& word) {
    constexpr const char* PLAIN = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./=:,+@";
    if (!word.empty() && word.find_first_not_of(PLAIN) == std::string::npos) return word;
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::string keep_command(const VaryWords& words) {
    std::string command = "vornkit";
    for (const std::string& word : words.choice) command += " " + shell_word(word);
    return command + " --keep ";
}

std::vector<std::string> files_of(const VaryPlan& plan) {
    std::vector<std::string> files;
    for (const auto& [name, text] : plan.texts) files.push_back(name);
    if (!plan.orchestra.empty()) files.push_back(plan.orchestra);
    return files;
}

}  // namespace

bool claim_folder(const VaryPlan& plan, std::string& reason) {
    std::error_code error;
    fs::create_directories(plan.folder, error);
    if (error) {
        reason = "cannot make the folder " + plan.folder + ": " + error.message();
        return false;
    }
    if (const std::string hindrance = reason_against_folder(plan); !hindrance.empty()) {
        reason = "\"" + plan.folder + "\" " + hindrance;
        return false;
    }
    return write_file(plan.folder + "/" + MARK_FILE, mark(plan), reason);
}

bool write_sheet(const VaryPlan& plan, const VaryWords& words, std::string& reason) {
    Sheet sheet;
    sheet.title = fs::path(plan.score).filename().string();
    sheet.varied = plan.variation.name;
    sheet.keep_command = keep_command(words);
    for (unsigned number = plan.first; number < plan.first + plan.count; ++number) {
        if (const auto record = finished_variant(plan, number)) sheet.variants.push_back(*record);
    }
    return write_file(plan.folder + "/index.html", sheet_page(sheet), reason);
}

bool write_workflow(const VaryPlan& plan, const VaryWords& words, std::string& reason) {
    Workflow workflow;
    workflow.folder = plan.folder;
    workflow.inputs = files_of(plan);
    workflow.arguments = words.whole;
    workflow.first = plan.first;
    workflow.count = plan.count;
    reason = workflow_hindrance(workflow);
    return reason.empty() && write_file(plan.folder + "/Snakefile", snakefile(), reason) &&
           write_file(plan.folder + "/config.json", workflow_settings(workflow), reason);
}

}  // namespace vorn::kit
