#pragma once

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "kit/events/roles.h"

// What of a run a picture shows: the blocks that sound or rest within a span of
// seconds, what their p-fields mean, and their extent.

namespace vorn::kit {

struct ViewOptions {
    WantedRoles roles;
    bool has_pitch = true;  // false: no p-field is taken for a pitch
    double from = 0;        // seconds
    double to = HUGE_VAL;   // seconds; beyond the end: up to the end
};

struct BlockView {
    const BlockRecord* record = nullptr;
    std::size_t index = 0;   // in the run
    std::string place;       // "line 12", in an included file "hocket.inc:12"
    PitchRole pitch;         // p-field 0: none, or none of its values is a pitch
    LevelRole level;         // p-field 0: none
    double begin = 0;        // seconds
    double end = 0;          // the last sound or, where nothing sounds, the last start
    std::size_t events = 0;  // that sound within the span
    std::size_t rests = 0;
};

// An event that is seen: its row, and its seconds cut to the span.
struct SeenEvent {
    std::size_t row = 0;
    double begin = 0;
    double end = 0;
};

struct ScoreView {
    std::vector<BlockView> blocks;
    double from = 0;
    double to = 1;

    // What of a row lies within the span; nothing for rests and for times without end.
    std::optional<SeenEvent> seen(const BlockView& block, std::size_t row) const;
};

[[nodiscard]] ScoreView view_score(const ScoreRun& run, const ViewOptions& options);

// Calls visit(block, event) for every sounding event of the span.
template <typename Visit>
void for_each_seen(const ScoreView& view, const BlockView& block, Visit visit) {
    const std::size_t rows = block.record->events.size();
    for (std::size_t row = 0; row < rows; ++row) {
        if (const std::optional<SeenEvent> event = view.seen(block, row)) visit(*event);
    }
}

}  // namespace vorn::kit
