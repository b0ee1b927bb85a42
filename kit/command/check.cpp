#include <algorithm>
#include <memory>

#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"
#include "kit/command/system_sources.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/json_form.h"
#include "kit/diagnose/text_form.h"
#include "kit/lint/lint.h"

// vornkit check: the mistakes of scores, each where it stands. They are what was
// asked for and go to standard output; what is wrong with the asking goes to
// standard error.

namespace vorn::kit {

namespace {

struct CheckArguments {
    std::vector<std::string> scores;
    std::string format = "text";
    bool relative = false;
    LintOptions lint;
};

// Prints each score as soon as it is checked, or keeps all for one document.
class CheckReport {
public:
    explicit CheckReport(bool is_json) : is_json_(is_json) {}

    void add(const std::string& name, const ScoreRun& run, const std::vector<Diagnostic>& diagnostics) {
        if (is_json_) {
            scores_.push_back(json_score(name, run.status == 0, diagnostics, run.map));
            return;
        }
        for (const Diagnostic& diagnostic : diagnostics) {
            print(text_form(diagnostic, run.map, style_));
        }
    }

    void finish() {
        if (is_json_) print(json_report(scores_));
    }

private:
    static void print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

    bool is_json_;
    const TextStyle style_ = style_for(stdout);
    std::vector<std::string> scores_;
};

// A header alone at the end of a score opens a block that never begins.
bool has_blocks(const ScoreRun& run) {
    return std::any_of(run.blocks.begin(), run.blocks.end(),
                       [](const BlockRecord& block) { return block.is_skipped || !block.fields.empty(); });
}

// Definitions alone are a file for others to include.
bool is_empty(const ScoreRun& run) {
    const bool only_a_header = !run.blocks.empty();
    const bool defines = !run.macros.empty() || !run.constants.empty();
    return run.status == 0 && run.messages.empty() && !has_blocks(run) && run.direct_lines.empty() &&
           run.tempos.empty() && (only_a_header || !defines);
}

Outcome check_score(const std::string& argument, const CheckArguments& arguments, CheckReport& report) {
    SystemSources sources;
    RunOptions options;
    options.relative = arguments.relative;
    const std::string name = source_name(argument);
    const ScoreRun run = run_of_files(name, options, sources);
    if (!was_found(argument, run)) return Outcome::WRONG_USE;
    std::vector<Diagnostic> diagnostics = from_messages(run);
    add_lint(diagnostics, run, arguments.lint);
    report.add(name, run, diagnostics);
    if (is_empty(run)) complain("\"" + argument + "\" has no block, so there is nothing to play");
    return run.status == 0 ? Outcome::WELL : Outcome::REFUSED;
}

Outcome check(const CheckArguments& arguments) {
    if (std::count(arguments.scores.begin(), arguments.scores.end(), "-") > 1) {
        complain("standard input can be read once only; give \"-\" once");
        return Outcome::WRONG_USE;
    }
    CheckReport report(arguments.format == "json");
    Outcome outcome = Outcome::WELL;
    for (const std::string& score : arguments.scores) {
        outcome = std::max(outcome, check_score(score, arguments, report));
    }
    report.finish();
    return outcome;
}

}  // namespace

void add_check(CLI::App& app, Outcome& outcome) {
    CLI::App* const command =
        app.add_subcommand("check", "tells the mistakes of scores and how to mend them");
    command->footer(
        "Examples: vornkit check piece.vorn\n"
        "          vornkit check --format json piece.vorn > piece.json");
    const auto arguments = std::make_shared<CheckArguments>();
    command->add_option("SCORE", arguments->scores, "scores; - is standard input")->required();
    take_one_of(command->add_option("--format", arguments->format, "text for people, or json for programs"),
                {"text", "json"});
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->add_flag("--midi", arguments->lint.midi, "look for what vorn -m leaves out or bends, too");
    command->add_option("--ignore", arguments->lint.ignored, "leave out these notes, L1 or L1,L3")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->transform(CLI::IsMember(lint_codes(), CLI::ignore_case));
    command->callback([arguments, &outcome] { outcome = check(*arguments); });
}

}  // namespace vorn::kit
