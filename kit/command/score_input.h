#pragma once

#include <string>

#include "kit/command/outcome.h"
#include "kit/command/system_sources.h"
#include "kit/run/score_run.h"

namespace vorn::kit {

// Tells the errors of a run, not its warnings, on standard error.
void tell_mistakes(const ScoreRun& run);

// Tells the warnings as `vornkit check` does, of many the first ones; no notes of what is merely odd.
void tell_warnings(const ScoreRun& run);

// Whether the score itself was there to be run; if not, that is told. `score` as on the
// command line.
[[nodiscard]] bool was_found(const std::string& score, const ScoreRun& run);

// Runs the score of that name. An include that is not found is told with the whole path
// under which it was looked for.
[[nodiscard]] ScoreRun run_of_files(const std::string& name, const RunOptions& options,
                                    SystemSources& sources);

// The score of a command line: runs it, and tells its mistakes on standard error. `output`
// gets the Csound score.
class ScoreInput {
public:
    ScoreInput(const std::string& argument, bool relative, const std::string& output = NOWHERE);

    // REFUSED: it has a mistake; WRONG_USE: it cannot be read.
    Outcome outcome() const { return outcome_; }
    bool is_well() const { return outcome_ == Outcome::WELL; }
    const ScoreRun& run() const { return run_; }
    const SystemSources& sources() const { return sources_; }

private:
    ScoreRun run(const std::string& argument, const RunOptions& options);

    SystemSources sources_;
    ScoreRun run_;
    Outcome outcome_ = Outcome::WELL;
};

}  // namespace vorn::kit
