#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kit/events/table_text.h"
#include "kit/run/score_run.h"
#include "output/written_value.h"

// The columns in which the events of a block are shown, by whatever form of file:
// a value as it was computed, and how the score writes it.

namespace vorn::kit {

struct EventsOptions {
    bool rests = false;  // events that the score leaves out, too
};

// One column of a block's events.
struct EventColumn {
    std::string name;               // "start", "p5"
    const float* values = nullptr;  // of the first row
    std::size_t stride = 1;         // from row to row
    bool has_written_form = false;  // a second column, "start_written", shows it
    std::optional<ValueForm> form;  // nothing: the score leaves the p-field out

    float value(std::size_t row) const { return values[row * stride]; }
};

// Start, duration, beat, P4 and above.
[[nodiscard]] std::vector<EventColumn> event_columns(const BlockRecord& block);

[[nodiscard]] inline bool is_rest(const BlockRecord& block, std::size_t row) {
    return block.events.duration[row] <= 0;
}

[[nodiscard]] inline bool is_shown(const BlockRecord& block, std::size_t row, const EventsOptions& options) {
    return options.rests || !is_rest(block, row);
}

[[nodiscard]] std::uint64_t count_shown(const BlockRecord& block, const EventsOptions& options);

// Whether the score shows this value: no rest has a line, and some types no column.
[[nodiscard]] inline bool is_written(const BlockRecord& block, const EventColumn& column, std::size_t row) {
    return column.form.has_value() && !is_rest(block, row);
}

// A value as the score writes it, without the blanks of its column.
void add_written(TableText& text, const EventColumn& column, std::size_t row);

// The block's number in the comments of the score; 0: it has nothing there.
[[nodiscard]] int number_in_score(const BlockRecord& block);

}  // namespace vorn::kit
