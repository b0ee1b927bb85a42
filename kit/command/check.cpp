#include <memory>

#include "kit/command/console.h"
#include "kit/command/subcommands.h"
#include "kit/command/system_sources.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/text_form.h"

// vornkit check: the mistakes of scores, each where it stands.

namespace vorn::kit {

namespace {

struct CheckArguments {
    std::vector<std::string> scores;
    bool relative = false;
};

bool check_score(const std::string& argument, bool relative) {
    SystemSources sources;
    RunOptions options;
    options.relative = relative;
    const ScoreRun run = run_score(source_name(argument), options, sources);
    for (const Diagnostic& diagnostic : from_messages(run)) {
        std::fputs(text_form(diagnostic, run.map).c_str(), stdout);
    }
    return run.status == 0;
}

Outcome check(const CheckArguments& arguments) {
    Outcome outcome = Outcome::WELL;
    for (const std::string& score : arguments.scores) {
        if (!check_score(score, arguments.relative)) outcome = Outcome::REFUSED;
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
    command->callback([arguments, &outcome] { outcome = check(*arguments); });
}

}  // namespace vorn::kit
