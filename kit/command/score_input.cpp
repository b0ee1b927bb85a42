#include "kit/command/score_input.h"

#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/text_form.h"

// Warnings are the business of `vornkit check`; a mistake is everybody's.

namespace vorn::kit {

ScoreInput::ScoreInput(const std::string& argument, bool relative) {
    RunOptions options;
    options.relative = relative;
    run_ = run_score(source_name(argument), options, sources_);
    for (const Diagnostic& diagnostic : from_messages(run_)) {
        if (diagnostic.level == Level::ERROR) std::fputs(text_form(diagnostic, run_.map).c_str(), stderr);
    }
}

}  // namespace vorn::kit
