#include "kit/picture/plots.h"

#include <algorithm>
#include <cmath>

#include "blocks/command_codes.h"
#include "kit/events/event_columns.h"

// Which plots an instrument has follows from what its blocks have: a roll where any
// has a pitch, a line of strokes where any has none, and a lane for every p-field
// that is not the pitch of all of them.

namespace vorn::kit {

namespace {

constexpr double HEIGHT_OF_KEY = 7;
constexpr double LOWEST_ROLL = 72;
constexpr double HIGHEST_ROLL = 280;
constexpr double FEWEST_KEYS = 6;  // of a roll, so that one note is no wall
constexpr double STROKES_HEIGHT = 16;
constexpr double LANE_HEIGHT = 48;
constexpr double CONSTANT_HEIGHT = 16;
constexpr double INSET = 6;  // of the extreme values from a lane's edges
constexpr double KEY_LABEL_ROOM = 13;
constexpr double LABEL_ROOM = 48;       // of a written value; a longer one is rounded
constexpr double KEY_OF_LOWEST_C = 12;  // from semitones to keys

// Where a value comes from.
struct Place {
    const BlockView* block = nullptr;
    std::size_t row = 0;
};

struct ValueRange {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    Place lowest;
    Place highest;
    std::size_t not_finite = 0;

    void add(double value, const Place& place) {
        if (!std::isfinite(value)) {
            ++not_finite;
            return;
        }
        if (value < low) lowest = place;
        if (value > high) highest = place;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    bool is_empty() const { return low > high; }
};

ValueRange range_of(const ScoreView& view, const Panel& panel, const Plot& plot) {
    ValueRange range;
    for (const BlockView* const block : panel.blocks) {
        for_each_seen(view, *block, [&](const SeenEvent& event) {
            if (const auto value = plotted_value(plot, *block, event.row))
                range.add(*value, {block, event.row});
        });
    }
    return range;
}

// The p-field in which all pitched blocks have it; 0 when they do not agree.
int common_pitch(const Panel& panel) {
    int common = 0;
    for (const BlockView* const block : panel.blocks) {
        const int pitch = block->pitch.pfield;
        if (pitch == 0 || pitch == common) continue;
        if (common != 0) return 0;
        common = pitch;
    }
    return common;
}

bool is_level_of(const Panel& panel, int pfield) {
    return std::any_of(panel.blocks.begin(), panel.blocks.end(),
                       [pfield](const BlockView* block) { return block->level.pfield == pfield; });
}

bool is_noted(const BlockRecord& block, int pfield) {
    WantedRoles wanted;
    wanted.pitch = pfield;
    return find_pitch(block, wanted).unit == PitchUnit::SEMITONES;
}

// Values of a lane that are semitones in every block are told by names of notes.
bool has_note_names(const Panel& panel, int pfield) {
    return std::all_of(panel.blocks.begin(), panel.blocks.end(), [pfield](const BlockView* block) {
        return pfield > block->record->pfields || is_noted(*block->record, pfield);
    });
}

bool is_written_as_decibels(const BlockRecord& block, int pfield) {
    return std::any_of(block.fields.begin(), block.fields.end(), [pfield](const FieldRecord& field) {
        return field.number == pfield && field.output_type == CODE_DB;
    });
}

bool has_decibels(const Panel& panel, int pfield) {
    return std::all_of(panel.blocks.begin(), panel.blocks.end(), [pfield](const BlockView* block) {
        return pfield > block->record->pfields || is_written_as_decibels(*block->record, pfield);
    });
}

double lane_value(const Plot& plot, float value) {
    return plot.is_decibels ? to_decibels({plot.pfield, LevelUnit::AMPLITUDE}, value) : double{value};
}

std::string range_in_words(const std::string& low, const std::string& high) {
    return low == high ? low + " throughout" : "from " + low + " to " + high;
}

Plot roll(const ScoreView& view, const Panel& panel) {
    Plot plot;
    plot.kind = PlotKind::ROLL;
    plot.pfield = common_pitch(panel);
    plot.name = plot.pfield == 0 ? "Pitch" : "P" + std::to_string(plot.pfield);
    if (plot.pfield != 0) plot.role = "pitch";
    const ValueRange range = range_of(view, panel, plot);
    plot.not_finite = range.not_finite;
    if (!range.is_empty()) plot.range = range_in_words(key_name(range.low), key_name(range.high));
    const double low = range.is_empty() ? 60 : std::floor(range.low);
    const double high = range.is_empty() ? 60 : std::ceil(range.high);
    const double missing = std::max(0.0, FEWEST_KEYS - (high - low)) / 2;
    plot.scale.low = low - std::floor(missing) - 0.5;
    plot.scale.high = high + std::ceil(missing) + 0.5;
    plot.height = std::clamp((plot.scale.high - plot.scale.low) * HEIGHT_OF_KEY, LOWEST_ROLL, HIGHEST_ROLL);
    plot.scale.begin = plot.height;
    plot.scale.end = 0;
    plot.ticks = key_ticks(plot.scale, KEY_LABEL_ROOM);
    return plot;
}

Plot strokes() {
    Plot plot;
    plot.kind = PlotKind::STROKES;
    plot.name = "Events";
    plot.height = STROKES_HEIGHT;
    plot.scale = {-1, 1, plot.height, 0};
    return plot;
}

class StringSink final : public TextSink {
public:
    bool take(std::string_view piece) override {
        text_ += piece;
        return true;
    }
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

// "0.5" for "0.500"
std::string without_trailing_zeros(const std::string& number) {
    if (number.find('.') == std::string::npos) return number;
    const std::size_t last = number.find_last_not_of('0');
    return number.substr(0, number[last] == '.' ? last : last + 1);
}

// The value as the score has it, where it is written and short enough to be a label.
std::string written_label(const Place& place, int pfield, double value) {
    const std::vector<EventColumn> columns = event_columns(*place.block->record);
    const auto found = std::find_if(columns.begin(), columns.end(), [pfield](const EventColumn& column) {
        return column.name == "p" + std::to_string(pfield);
    });
    if (found == columns.end() || !found->form) return short_number(value);
    StringSink sink;
    TableText text(sink);
    add_written(text, *found, place.row);
    const bool is_whole = text.finish();
    const std::string label = without_trailing_zeros(sink.text());
    return is_whole && text_width(label, LABEL_SIZE) <= LABEL_ROOM ? label : short_number(value);
}

void label_range(Plot& plot, const ValueRange& range, bool with_names) {
    const auto label = [&plot, with_names](double value, const Place& place) {
        return with_names ? key_name(value + KEY_OF_LOWEST_C) : written_label(place, plot.pfield, value);
    };
    const std::string low = label(range.low, range.lowest);
    const std::string high = plot.is_constant ? low : label(range.high, range.highest);
    plot.range = range_in_words(low, high);
    if (!plot.is_constant) plot.ticks.push_back({plot.scale(range.high), high});
    plot.ticks.push_back({plot.scale(range.low), low});
}

Plot lane(const ScoreView& view, const Panel& panel, int pfield) {
    Plot plot;
    plot.pfield = pfield;
    plot.name = "P" + std::to_string(pfield);
    if (is_level_of(panel, pfield)) plot.role = "level";
    plot.is_decibels = has_decibels(panel, pfield);
    const ValueRange range = range_of(view, panel, plot);
    plot.not_finite = range.not_finite;
    plot.is_constant = range.is_empty() || range.low == range.high;
    plot.height = plot.is_constant ? CONSTANT_HEIGHT : LANE_HEIGHT;
    plot.scale = {range.low, range.high, plot.height - INSET, INSET};
    if (plot.is_constant) plot.scale = {range.low - 1, range.low + 1, plot.height, 0};
    if (range.is_empty()) plot.scale = {-1, 1, plot.height, 0};
    if (!range.is_empty()) label_range(plot, range, has_note_names(panel, pfield));
    return plot;
}

bool has_lane(const Panel& panel, int pfield) {
    return std::any_of(panel.blocks.begin(), panel.blocks.end(), [pfield](const BlockView* block) {
        return pfield <= block->record->pfields && pfield != block->pitch.pfield;
    });
}

int most_pfields(const Panel& panel) {
    int most = 0;
    for (const BlockView* const block : panel.blocks) most = std::max(most, block->record->pfields);
    return most;
}

}  // namespace

std::optional<double> plotted_value(const Plot& plot, const BlockView& block, std::size_t row) {
    const int pitch = block.pitch.pfield;
    switch (plot.kind) {
        case PlotKind::ROLL:
            if (pitch == 0) return std::nullopt;
            return to_key(block.pitch, block.record->value(row, pitch));
        case PlotKind::STROKES:
            return pitch == 0 ? std::optional(0.0) : std::nullopt;
        case PlotKind::LANE:
            if (plot.pfield > block.record->pfields || plot.pfield == pitch) return std::nullopt;
            return lane_value(plot, block.record->value(row, plot.pfield));
    }
    return std::nullopt;
}

std::vector<Plot> make_plots(const ScoreView& view, const Panel& panel) {
    const auto has_pitch = [](const BlockView* block) { return block->pitch.pfield != 0; };
    std::vector<Plot> plots;
    if (std::any_of(panel.blocks.begin(), panel.blocks.end(), has_pitch)) plots.push_back(roll(view, panel));
    if (!std::all_of(panel.blocks.begin(), panel.blocks.end(), has_pitch)) plots.push_back(strokes());
    for (int pfield = 4; pfield <= most_pfields(panel); ++pfield) {
        if (has_lane(panel, pfield)) plots.push_back(lane(view, panel, pfield));
    }
    return plots;
}

}  // namespace vorn::kit
