#include <algorithm>
#include <cmath>
#include <optional>

#include "blocks/timing.h"
#include "kit/lint/rules.h"
#include "kit/run/tempo.h"
#include "output/tempo_map.h"

// What a tempo that moves does to durations in beats and to blocks side by side.

namespace vorn::kit::rules {

namespace {

// --- durations in beats ---

constexpr int BEATS_CODE = 400;
constexpr float SAME_TEMPO = 0.001F;  // as a fraction

bool is_in_beats(const Item& item) {
    int code = 0;
    if (item.kind != ItemKind::VALUE) return false;
    extract_p3val(item.value, code);
    return code == BEATS_CODE;
}

// The beat of a start whose tempo is not that of the last one.
std::optional<float> beat_of_other_tempo(const std::vector<float>& beats, float last_tempo) {
    for (const float beat : beats) {
        if (std::fabs(find_tempo(beat) - last_tempo) > last_tempo * SAME_TEMPO) return beat;
    }
    return std::nullopt;
}

// --- drift ---

constexpr double LEAST_DRIFT =
    0.25;  // beats, a sixteenth note; intervals of different lengths soon part by less
constexpr double SAME_BEAT = 0.001;   // beats
constexpr std::size_t LOOK_BACK = 8;  // blocks

// When the starts of a block come, deviations left out. Intervals are converted
// whole at the tempo of their beginning, as everywhere.
struct Timeline {
    const BlockRecord* block = nullptr;
    std::vector<float> beats;     // ever later ones
    std::vector<double> seconds;  // of each
    std::vector<float> tempos;

    bool covers(float beat) const { return !beats.empty() && beats.front() <= beat && beat <= beats.back(); }

    double seconds_at(float beat) const {
        const auto next = std::upper_bound(beats.begin(), beats.end(), beat);
        const auto at = static_cast<std::size_t>(next - beats.begin()) - 1;
        return seconds[at] + (double{beat} - double{beats[at]}) * 60 / double{tempos[at]};
    }
};

void append_start(Timeline& timeline, float beat) {
    if (timeline.beats.empty()) {
        timeline.seconds.push_back(double{timeline.block->start_seconds});
    } else {
        timeline.seconds.push_back(timeline.seconds_at(beat));
    }
    timeline.beats.push_back(beat);
    timeline.tempos.push_back(find_tempo(beat));
}

Timeline timeline_of(const BlockRecord& block) {
    Timeline timeline;
    timeline.block = &block;
    for (const float beat : block.events.beat) {
        if (timeline.beats.empty() || beat > timeline.beats.back()) append_start(timeline, beat);
    }
    return timeline;
}

struct Meeting {
    float beat = 0;
    double here = 0;  // seconds
    double there = 0;
};

// Whether a block of `other` has a start at the beat.
bool has_start_at(const Timeline& other, float beat) {
    const auto near =
        std::lower_bound(other.beats.begin(), other.beats.end(), beat - static_cast<float>(SAME_BEAT));
    return near != other.beats.end() && double{*near} - double{beat} <= SAME_BEAT;
}

// Of the beats at which both have a start, and where the first of `here` lies, the
// first that comes at two times.
std::optional<Meeting> first_drift(const Timeline& here, const Timeline& there) {
    for (std::size_t n = 0; n < here.beats.size() && here.beats[n] <= there.beats.back(); ++n) {
        const float beat = here.beats[n];
        if (!there.covers(beat) || (n > 0 && !has_start_at(there, beat))) continue;
        const Meeting meeting = {beat, here.seconds[n], there.seconds_at(beat)};
        const double beats = std::fabs(meeting.here - meeting.there) * double{here.tempos[n]} / 60;
        if (beats > LEAST_DRIFT) return meeting;
    }
    return std::nullopt;
}

// Of the blocks before it the nearest that sounds at its beginning.
const Timeline* companion_of(const Timeline& here, const std::vector<Timeline>& before) {
    const std::size_t first = before.size() - std::min(before.size(), LOOK_BACK);
    for (std::size_t n = before.size(); n-- > first;) {
        if (before[n].covers(here.beats.front()) || here.covers(before[n].beats.front())) return &before[n];
    }
    return nullptr;
}

std::string place_in_words(const ScoreRun& run, const BlockRecord& block) {
    return "the block of line " + std::to_string(run.map.text_place(block.header).line);
}

void add_drift(const ScoreRun& run, const Timeline& here, const Timeline& there, const Meeting& meeting,
               Findings& findings) {
    Diagnostic diagnostic = findings.at(here.block->header);
    const std::string other = place_in_words(run, *there.block);
    diagnostic.text = "Beat " + number_text(double{meeting.beat}) + " comes at " + number_text(meeting.here) +
                      " seconds here and at " + number_text(meeting.there) + " in " + other +
                      ": the tempo moves.";
    diagnostic.advice.push_back(
        "Blocks keep together that begin at the same beat and have the same start intervals; count rests for "
        "events "
        "that are missing.");
    diagnostic.notes.push_back({other, there.block->header});
    findings.add(std::move(diagnostic));
}

}  // namespace

void beats_of_last_tempo(const Statement& statement, Findings& findings) {
    if (statement.field->number != 3 || statement.block->events.size() == 0) return;
    const auto item = std::find_if(statement.items.begin(), statement.items.end(), is_in_beats);
    if (item == statement.items.end()) return;
    if (!tempo_moves()) return;
    const float last_tempo = find_tempo(statement.block->events.beat.back());
    const std::optional<float> beat = beat_of_other_tempo(statement.block->events.beat, last_tempo);
    if (!beat) return;
    Diagnostic diagnostic = findings.at(statement.begin_of(*item), statement.last_of(*item));
    diagnostic.text = "Durations of code 400 are in beats of one tempo, " + number_text(double{last_tempo}) +
                      ", which the block has at its last start; at beat " + number_text(double{*beat}) +
                      " it has " + number_text(double{find_tempo(*beat)}) + ".";
    diagnostic.advice.push_back("Values below 200 follow the tempo: 1 lasts up to the next start.");
    findings.add(std::move(diagnostic));
}

void blocks_drift(const ScoreRun& run, Findings& findings) {
    if (run.tempos.empty()) return;
    TempoInForce tempos(run);
    std::vector<Timeline> before;
    for (std::size_t index = 0; index < run.blocks.size(); ++index) {
        tempos.advance_to(index);
        if (!tempo_moves()) continue;
        Timeline here = timeline_of(run.blocks[index]);
        if (here.beats.empty()) continue;
        if (const Timeline* there = companion_of(here, before)) {
            const std::optional<Meeting> meeting = first_drift(here, *there);
            if (meeting) add_drift(run, here, *there, *meeting, findings);
        }
        before.push_back(std::move(here));
        if (before.size() > LOOK_BACK) before.erase(before.begin());
    }
}

}  // namespace vorn::kit::rules
