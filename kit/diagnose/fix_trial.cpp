#include "kit/diagnose/fix_trial.h"

#include <algorithm>

// A fix is tried before it is offered: advice tells from what stands around a place, the
// engine alone knows what it reads there. A run ends at its first error, so there is one
// trial at most; and as everything before the change is read as it was, what ends the
// trial elsewhere than in the changed file stands further on.

namespace vorn::kit {

namespace {

// The texts of a run, one of them changed. What the run has not opened is there, but empty.
class FixedSources final : public Sources {
public:
    FixedSources(const SourceMap& map, const Fix& fix) : map_(map), fix_(fix) {}

    const std::string& changed_name() const {
        return map_.files()[static_cast<std::size_t>(fix_.span.file)].name;
    }

    std::optional<std::string> read(const std::string& name) override {
        const auto& files = map_.files();
        const auto found = std::find_if(files.begin(), files.end(),
                                        [&name](const SourceFile& file) { return file.name == name; });
        if (found == files.end()) return "\n";
        std::string text = found->text;
        if (name != changed_name()) return text;
        return text.replace(fix_.span.begin, fix_.span.end - fix_.span.begin, fix_.replacement);
    }

private:
    const SourceMap& map_;
    const Fix& fix_;
};

}  // namespace

// The engine tells a name that no macro or constant has as an error in the value of an
// "#if", too, and goes on: what leaves the score accepted is a warning.
const RunMessage* ending_error(const ScoreRun& run) {
    if (run.status == 0) return nullptr;
    const auto last = std::find_if(run.messages.rbegin(), run.messages.rend(), [](const RunMessage& message) {
        return message.severity == Severity::ERROR;
    });
    return last == run.messages.rend() ? nullptr : &*last;
}

bool cures(const Fix& fix, const ScoreRun& run) {
    const RunMessage* const mistake = ending_error(run);
    if (mistake == nullptr) return true;
    FixedSources sources(run.map, fix);
    RunOptions options;
    options.relative = run.is_relative;
    options.keep_events = false;
    const ScoreRun trial = run_score(run.map.files()[0].name, options, sources);
    if (trial.status == 0) return true;
    const RunMessage* const left = ending_error(trial);
    if (left == nullptr || left->span.file < 0) return false;
    const std::string& file = trial.map.files()[static_cast<std::size_t>(left->span.file)].name;
    const bool is_before = fix.span.begin <= mistake->span.begin;
    const std::uint64_t removed = is_before ? fix.span.end - fix.span.begin : 0;
    const std::uint64_t added = is_before ? fix.replacement.size() : 0;
    return file != sources.changed_name() || left->span.begin + removed > mistake->span.begin + added;
}

}  // namespace vorn::kit
