#include "kit/command/score_input.h"

#include <unistd.h>

#include <optional>

#include "kit/command/progress.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/text_form.h"

// Warnings are the business of `vornkit check`; a mistake is everybody's.

namespace vorn::kit {

void tell_mistakes(const ScoreRun& run) {
    for (const Diagnostic& diagnostic : from_messages(run)) {
        if (diagnostic.level == Level::ERROR) std::fputs(text_form(diagnostic, run.map).c_str(), stderr);
    }
}

// Whoever types a score at the terminal needs the line that progress would take.
ScoreRun ScoreInput::run(const std::string& argument, const RunOptions& options) {
    std::optional<Progress> progress;
    if (argument != "-" || isatty(STDIN_FILENO) == 0) progress.emplace("reading " + argument);
    return run_score(source_name(argument), options, sources_);
}

ScoreInput::ScoreInput(const std::string& argument, bool relative, const std::string& output) {
    RunOptions options;
    options.relative = relative;
    options.output = output;
    run_ = run(argument, options);
    tell_mistakes(run_);
}

}  // namespace vorn::kit
