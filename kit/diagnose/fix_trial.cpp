#include "kit/diagnose/fix_trial.h"

#include <algorithm>

#include "kit/diagnose/marks.h"
#include "kit/diagnose/unnumbered.h"

// A fix is tried before it is offered: advice tells from what stands around a place, the
// engine alone knows what it reads there. A run ends at its first error, so there is one
// trial at most; and as everything before the change is read as it was, what ends the
// trial elsewhere than in the changed file stands further on.
//
//     p4 == 60     with one "=" left out the next one is as wrong
//     p4=60        without "=" it is a P460, a word that the change itself has made

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

// Where a place stands when the fix is made; of what it replaces, behind it.
std::uint64_t moved(std::uint64_t place, const Fix& fix) {
    if (place < fix.span.begin) return place;
    const std::uint64_t behind = fix.span.begin + fix.replacement.size();
    return place < fix.span.end ? behind : behind + place - fix.span.end;
}

// Whether the error is in a word that the fix is a part of.
bool is_made_by(const Fix& fix, const ScoreRun& trial, const RunMessage& error) {
    const Site site = site_of(trial, error);
    const Stretch mark = mark_of(code_of(error), site);
    return mark.begin < fix.span.begin && mark.end > fix.span.begin &&
           site.of(mark).find('(') == std::string_view::npos;
}

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
    if (file != sources.changed_name()) return true;
    const std::uint64_t before = moved(mistake->span.begin, fix);
    const bool is_same_place = left->span.begin == before && left->number != mistake->number;
    return (left->span.begin > before || is_same_place) && !is_made_by(fix, trial, *left);
}

}  // namespace vorn::kit
