#include "kit/command/score_input.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>

#include "kit/command/console.h"
#include "kit/command/progress.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/text_form.h"
#include "kit/lint/lint.h"

// A mistake is everybody's business. Warnings are that of `vornkit check`, and of who listens
// to what has come out.

namespace vorn::kit {

namespace {

constexpr std::size_t MOST_WARNINGS = 20;

}  // namespace

void tell_mistakes(const ScoreRun& run) {
    const TextStyle style = style_for(stderr);
    for (const Diagnostic& diagnostic : from_messages(run)) {
        if (diagnostic.level == Level::ERROR)
            std::fputs(text_form(diagnostic, run.map, style).c_str(), stderr);
    }
}

void tell_warnings(const ScoreRun& run) {
    const TextStyle style = style_for(stderr);
    std::vector<Diagnostic> diagnostics = from_messages(run);
    add_lint(diagnostics, run, {});
    std::erase_if(diagnostics, [](const Diagnostic& one) { return one.level != Level::WARNING; });
    for (std::size_t at = 0; at < std::min(diagnostics.size(), MOST_WARNINGS); ++at) {
        std::fputs(text_form(diagnostics[at], run.map, style).c_str(), stderr);
    }
    if (diagnostics.size() <= MOST_WARNINGS) return;
    complain("and " + std::to_string(diagnostics.size() - MOST_WARNINGS) +
             " more warnings; vornkit check tells them all");
}

// It is asked for once more, since only now its absence must be explained. What can be
// read and was not taken all the same, or what would wait for itself, the engine has a reason for.
bool was_found(const std::string& score, const ScoreRun& run) {
    if (!run.map.files().empty()) return true;
    SystemSources sources;
    errno = 0;
    if (sources.is_written(source_name(score)) || sources.read(source_name(score))) {
        tell_mistakes(run);
    } else {
        complain("cannot read \"" + score + "\": " + std::strerror(errno));
    }
    return false;
}

ScoreRun run_of_files(const std::string& name, const RunOptions& options, SystemSources& sources) {
    ScoreRun run = run_score(name, options, sources);
    for (std::string& tried : run.tried_includes) {
        std::error_code no_folder;  // the current one is gone: the name stays as it is
        const std::filesystem::path path = std::filesystem::absolute(tried, no_folder);
        if (!no_folder) tried = path.string();
    }
    return run;
}

// Whoever types a score at the terminal needs the line that progress would take.
ScoreRun ScoreInput::run(const std::string& argument, const RunOptions& options) {
    std::optional<Progress> progress;
    if (argument != "-" || isatty(STDIN_FILENO) == 0) progress.emplace("reading " + argument);
    return run_of_files(source_name(argument), options, sources_);
}

ScoreInput::ScoreInput(const std::string& argument, bool relative, const std::string& output) {
    RunOptions options;
    options.relative = relative;
    options.output = output;
    run_ = run(argument, options);
    if (!was_found(argument, run_)) {
        outcome_ = Outcome::WRONG_USE;
        return;
    }
    tell_mistakes(run_);
    if (run_.status != 0) outcome_ = Outcome::REFUSED;
}

}  // namespace vorn::kit
