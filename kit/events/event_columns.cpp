#include "kit/events/event_columns.h"

#include <algorithm>

namespace vorn::kit {

namespace {

const FieldRecord* find_field(const BlockRecord& block, int number) {
    const auto found = std::find_if(block.fields.begin(), block.fields.end(),
                                    [number](const FieldRecord& field) { return field.number == number; });
    return found == block.fields.end() ? nullptr : &*found;
}

// Without its width: the blanks belong to the score's columns.
std::optional<ValueForm> written_form(const BlockRecord& block, int pfield) {
    const FieldRecord* const field = find_field(block, pfield);
    if (field == nullptr) return std::nullopt;
    const FieldFormat format = {pfield, static_cast<std::uint32_t>(field->output_type), field->decimals,
                                field->fft_size, block.sample_rate};
    ValueForm form = {};
    if (!plan_value(form, format)) return std::nullopt;
    form.width = 0;
    return form;
}

}  // namespace

std::vector<EventColumn> event_columns(const BlockRecord& block) {
    const EventTable& events = block.events;
    std::vector<EventColumn> columns = {
        {"start", events.start.data(), 1, true, written_form(block, 2)},
        {"duration", events.duration.data(), 1, true, written_form(block, 3)},
        {"beat", events.beat.data(), 1, false, std::nullopt},
    };
    for (int pfield = 4; pfield <= block.pfields; ++pfield) {
        const float* const first = events.values.empty() ? nullptr : &events.values[pfield - 4];
        columns.push_back(
            {"p" + std::to_string(pfield), first, block.columns(), true, written_form(block, pfield)});
    }
    return columns;
}

std::uint64_t count_shown(const BlockRecord& block, const EventsOptions& options) {
    std::uint64_t count = 0;
    for (std::size_t row = 0; row < block.events.size(); ++row)
        count += is_shown(block, row, options) ? 1 : 0;
    return count;
}

void add_written(TableText& text, const EventColumn& column, std::size_t row) {
    char* const to = text.space(REAL_TEXT_SIZE);
    text.advance(write_value(to, *column.form, column.value(row)));
}

int number_in_score(const BlockRecord& block) {
    if (block.is_skipped) return 0;
    return count_shown(block, {}) == 0 ? 0 : block.number;
}

}  // namespace vorn::kit
