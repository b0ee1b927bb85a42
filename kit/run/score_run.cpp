#include "kit/run/score_run.h"

#include "driver/run.h"
#include "kit/run/recorder.h"

// A run of the kit goes through the command line of vorn, like any other: there is
// one way to read a score. What it prints is dropped, for the observer is told all
// of it; "-s" spares the formatting of what would be dropped.

namespace vorn::kit {

const char* const NOWHERE = "/dev/null";

namespace {

// A name that begins with "-" would be taken for an option.
std::string as_operand(const std::string& name) { return name.substr(0, 1) == "-" ? "./" + name : name; }

// The engine refuses a name that it is given twice; the score, too, may be the file of nothing.
std::string as_output(const std::string& output, const std::string& input) {
    return output == NOWHERE && input == NOWHERE ? "/dev/../dev/null" : output;
}

}  // namespace

ScoreRun run_score(const std::string& name, const RunOptions& options, Sources& sources) {
    ScoreRun run;
    Recorder recorder(run, options, sources);
    std::FILE* const silence = std::fopen(NOWHERE, "w");
    if (silence == nullptr) return run;
    const std::string input = as_operand(name);
    const std::string output = as_output(options.output, input);
    const char* const arguments[] = {"vorn", "-s", input.c_str(), output.c_str(), nullptr};
    run.status = run_program(4, arguments, {silence, silence, &recorder});
    std::fclose(silence);
    return run;
}

}  // namespace vorn::kit
