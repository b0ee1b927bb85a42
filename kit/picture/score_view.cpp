#include "kit/picture/score_view.h"

#include <algorithm>

// Times and values may be whatever arithmetic made of them. What has no finite start
// has no place in a picture; a sound without end is cut at the span's end.

namespace vorn::kit {

namespace {

constexpr double SHORTEST_SPAN = 1e-3;  // seconds

bool has_start(const BlockRecord& block, std::size_t row) {
    return std::isfinite(block.events.exact_start[row]);
}

bool is_rest(const BlockRecord& block, std::size_t row) { return !(block.events.duration[row] > 0); }

double end_of(const BlockRecord& block, std::size_t row) {
    return block.events.exact_start[row] + std::max(0.0, double{block.events.duration[row]});
}

std::string place_of(const ScoreRun& run, const BlockRecord& block) {
    if (block.header.file < 0) return "block " + std::to_string(block.number);
    const std::string line = std::to_string(run.map.text_place(block.header).line);
    if (block.header.file == 0) return "line " + line;
    const std::string& name = run.map.files()[static_cast<std::size_t>(block.header.file)].name;
    return name.substr(name.rfind('/') + 1) + ":" + line;
}

// The first start and the last end that are finite.
void measure(BlockView& view) {
    const BlockRecord& block = *view.record;
    view.begin = block.start_seconds;
    view.end = view.begin;
    bool is_first = true;
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        if (!has_start(block, row)) continue;
        const double start = block.events.exact_start[row];
        const double end = std::isfinite(end_of(block, row)) ? end_of(block, row) : start;
        view.begin = is_first ? start : std::min(view.begin, start);
        view.end = is_first ? end : std::max(view.end, end);
        is_first = false;
    }
}

bool has_any_pitch(const BlockView& view) {
    for (std::size_t row = 0; row < view.record->events.size(); ++row) {
        const bool sounds = !is_rest(*view.record, row);
        if (sounds && std::isfinite(to_key(view.pitch, view.record->value(row, view.pitch.pfield))))
            return true;
    }
    return false;
}

BlockView view_block(const ScoreRun& run, std::size_t index, const ViewOptions& options) {
    BlockView view;
    view.record = &run.blocks[index];
    view.index = index;
    view.place = place_of(run, *view.record);
    if (options.has_pitch) view.pitch = find_pitch(*view.record, options.roles);
    if (view.pitch.pfield != 0 && !has_any_pitch(view)) view.pitch = {};
    view.level = find_level(*view.record, options.roles);
    if (view.level.pfield == view.pitch.pfield) view.level = {};
    measure(view);
    return view;
}

void set_span(ScoreView& view, const ViewOptions& options) {
    double end = 0;
    for (const BlockView& block : view.blocks) end = std::max(end, block.end);
    view.from = options.from;
    view.to = std::min(options.to, end);
    if (view.to < view.from + SHORTEST_SPAN) view.to = view.from + 1;
}

void count_events(const ScoreView& view, BlockView& block) {
    const BlockRecord& record = *block.record;
    for (std::size_t row = 0; row < record.events.size(); ++row) {
        if (view.seen(block, row)) ++block.events;
        const double start = record.events.exact_start[row];
        if (is_rest(record, row) && start >= view.from && start <= view.to) ++block.rests;
    }
}

}  // namespace

std::optional<SeenEvent> ScoreView::seen(const BlockView& block, std::size_t row) const {
    const BlockRecord& record = *block.record;
    if (is_rest(record, row) || !has_start(record, row)) return std::nullopt;
    const double begin = record.events.exact_start[row];
    const double end = end_of(record, row);
    if (end < from || begin > to) return std::nullopt;
    return SeenEvent{row, std::max(begin, from), std::min(end, to)};
}

ScoreView view_score(const ScoreRun& run, const ViewOptions& options) {
    ScoreView view;
    for (std::size_t index = 0; index < run.blocks.size(); ++index) {
        if (!run.blocks[index].is_skipped) view.blocks.push_back(view_block(run, index, options));
    }
    set_span(view, options);
    const auto is_elsewhere = [&view](const BlockView& block) {
        return block.end < view.from || block.begin > view.to;
    };
    view.blocks.erase(std::remove_if(view.blocks.begin(), view.blocks.end(), is_elsewhere),
                      view.blocks.end());
    for (BlockView& block : view.blocks) count_events(view, block);
    return view;
}

}  // namespace vorn::kit
