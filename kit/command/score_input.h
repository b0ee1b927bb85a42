#pragma once

#include <string>

#include "kit/command/system_sources.h"
#include "kit/run/score_run.h"

namespace vorn::kit {

// Tells the errors of a run, not its warnings, on standard error.
void tell_mistakes(const ScoreRun& run);

// The score of a command line: runs it, and tells its mistakes on standard error. `output`
// gets the Csound score.
class ScoreInput {
public:
    ScoreInput(const std::string& argument, bool relative, const std::string& output = NOWHERE);

    bool is_found() const { return !run_.map.files().empty(); }
    bool is_well() const { return run_.status == 0; }
    const ScoreRun& run() const { return run_; }
    const SystemSources& sources() const { return sources_; }

private:
    ScoreRun run(const std::string& argument, const RunOptions& options);

    SystemSources sources_;
    ScoreRun run_;
};

}  // namespace vorn::kit
