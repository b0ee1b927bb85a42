#include <memory>

#include "kit/command/console.h"
#include "kit/command/subcommands.h"
#include "kit/command/system_sources.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/text_form.h"
#include "kit/lint/lint.h"

// vornkit check: the mistakes of scores, each where it stands.

namespace vorn::kit {

namespace {

struct CheckArguments {
    std::vector<std::string> scores;
    bool relative = false;
    LintOptions lint;
};

bool check_score(const std::string& argument, const CheckArguments& arguments) {
    SystemSources sources;
    RunOptions options;
    options.relative = arguments.relative;
    const ScoreRun run = run_score(source_name(argument), options, sources);
    std::vector<Diagnostic> diagnostics = from_messages(run);
    add_lint(diagnostics, run, arguments.lint);
    for (const Diagnostic& diagnostic : diagnostics) {
        std::fputs(text_form(diagnostic, run.map).c_str(), stdout);
    }
    return run.status == 0;
}

Outcome check(const CheckArguments& arguments) {
    Outcome outcome = Outcome::WELL;
    for (const std::string& score : arguments.scores) {
        if (!check_score(score, arguments)) outcome = Outcome::REFUSED;
    }
    return outcome;
}

}  // namespace

void add_check(CLI::App& app, Outcome& outcome) {
    CLI::App* const command =
        app.add_subcommand("check", "tells the mistakes of scores and how to mend them");
    command->footer("Example: vornkit check piece.vorn");
    const auto arguments = std::make_shared<CheckArguments>();
    command->add_option("SCORE", arguments->scores, "scores; - is standard input")->required();
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->add_flag("--midi", arguments->lint.midi, "look for what vorn -m leaves out or bends, too");
    command->add_option("--ignore", arguments->lint.ignored, "leave out these notes, L1 or L1,L3")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->transform(CLI::IsMember(lint_codes(), CLI::ignore_case));
    command->callback([arguments, &outcome] { outcome = check(*arguments); });
}

}  // namespace vorn::kit
