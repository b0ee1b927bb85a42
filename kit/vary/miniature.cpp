#include "kit/vary/miniature.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "kit/events/roles.h"
#include "kit/picture/theme.h"

// Events become cells of a grid, and neighbours of a row one stroke, so that the
// picture of a million events is no larger than the grid allows. The last cell of
// a stroke is left free where there is another, which keeps repeated notes apart.

namespace vorn::kit {

namespace {

constexpr std::size_t COLUMNS = 640;
constexpr double FEWEST_KEYS = 12;
constexpr double MOST_KEYS = 96;
constexpr std::size_t COLORS = COLOR_COUNT;

struct Note {
    double begin;
    double end;
    double key;
    std::size_t color;
};

struct Notes {
    std::vector<Note> notes;
    double seconds = 0;
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
};

std::optional<Note> note_of(const BlockRecord& block, const PitchRole& role, std::size_t row) {
    const double begin = block.events.exact_start[row];
    const double duration = block.events.duration[row];
    const double key = role.pfield >= 4 ? to_key(role, block.value(row, role.pfield)) : NAN;
    if (!(duration > 0) || !std::isfinite(begin) || !std::isfinite(duration)) return std::nullopt;
    return Note{begin, begin + duration, key, 0};
}

void add_block(Notes& all, const BlockRecord& block, std::size_t color) {
    const PitchRole role = find_pitch(block);
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        std::optional<Note> note = note_of(block, role, row);
        if (!note) continue;
        note->color = color;
        all.notes.push_back(*note);
        all.seconds = std::max(all.seconds, note->end);
        if (!std::isfinite(note->key) || note->key < -128 || note->key > 256) continue;
        all.low = std::min(all.low, note->key);
        all.high = std::max(all.high, note->key);
    }
}

// The instruments in their order take the colours in turn.
Notes collect(const ScoreRun& run) {
    Notes all;
    std::vector<int> instruments;
    for (const BlockRecord& block : run.blocks) {
        if (block.is_skipped) continue;
        auto found = std::find(instruments.begin(), instruments.end(), block.instrument);
        if (found == instruments.end()) found = instruments.insert(instruments.end(), block.instrument);
        add_block(all, block, static_cast<std::size_t>(found - instruments.begin()) % COLORS);
    }
    return all;
}

// The keys seen, half a key around each; an octave at least and in whole keys.
void frame_keys(const Notes& all, Miniature& result) {
    const double low = all.low <= all.high ? all.low : 60;
    const double high = all.low <= all.high ? all.high : 60;
    const double keys = std::max(FEWEST_KEYS, std::ceil(high - low) + 2);
    const double middle = (low + high) / 2;
    result.low = std::floor(middle - keys / 2);
    result.high = result.low + keys + 1;
}

class Grid {
public:
    Grid(const Notes& all, const Miniature& frame)
        : frame_(frame),
          rows_(static_cast<std::size_t>(std::min(frame.high - frame.low, MOST_KEYS))),
          cells_(COLORS * rows_ * COLUMNS, 0) {
        for (const Note& note : all.notes) cover(note);
    }

    std::size_t rows() const { return rows_; }

    std::string path(std::size_t color) const {
        std::string path;
        for (std::size_t row = 0; row < rows_; ++row) append_row(path, color, row);
        return path;
    }

private:
    char* cell(std::size_t color, std::size_t row) { return &cells_[(color * rows_ + row) * COLUMNS]; }

    std::size_t row_of(double key) const {
        if (!std::isfinite(key)) key = (frame_.low + frame_.high) / 2;
        const double part = (frame_.high - key) / (frame_.high - frame_.low);
        return static_cast<std::size_t>(std::clamp(part, 0.0, 0.9999) * static_cast<double>(rows_));
    }

    std::size_t column_of(double second) const {
        return static_cast<std::size_t>(std::clamp(second / frame_.seconds, 0.0, 1.0) * (COLUMNS - 1));
    }

    void cover(const Note& note) {
        const std::size_t begin = column_of(note.begin);
        const std::size_t end = std::max(begin + 1, column_of(note.end));
        char* const row = cell(note.color, row_of(note.key));
        std::fill(row + begin, row + std::min(end, COLUMNS), char{1});
        if (end < COLUMNS && end > begin + 1) row[end - 1] = 0;
    }

    void append_row(std::string& path, std::size_t color, std::size_t row) const {
        const char* const cells = &cells_[(color * rows_ + row) * COLUMNS];
        for (std::size_t at = 0; at < COLUMNS;) {
            const char* const begin = std::find(cells + at, cells + COLUMNS, char{1});
            const char* const end = std::find(begin, cells + COLUMNS, char{0});
            at = static_cast<std::size_t>(end - cells);
            if (begin == end) continue;
            const std::string width = std::to_string(end - begin);
            path += "M" + std::to_string(begin - cells) + " " + std::to_string(row);
            path.append("h").append(width).append("v1h-").append(width).append("z");
        }
    }

    const Miniature& frame_;
    std::size_t rows_;
    std::vector<char> cells_;
};

// ".a{fill:#0053b1}", a class an instrument.
std::string color_rules(const Tones& tones) {
    std::string rules;
    for (std::size_t color = 0; color < COLORS; ++color) {
        char rule[32];
        std::snprintf(rule, sizeof rule, ".%c{fill:#%06x}", static_cast<int>('a' + color),
                      tones.instruments[color]);
        rules += rule;
    }
    return rules;
}

std::string svg(const Grid& grid) {
    const std::string rules =
        color_rules(LIGHT_TONES) + "@media(prefers-color-scheme:dark){" + color_rules(DARK_TONES) + "}";
    std::string text =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"320\" height=\"120\" viewBox=\"0 0 " +
        std::to_string(COLUMNS) + " " + std::to_string(grid.rows()) +
        "\" preserveAspectRatio=\"none\" role=\"img\"><title>pitch over time</title><style>" + rules +
        "</style>\n";
    for (std::size_t color = 0; color < COLORS; ++color) {
        const std::string path = grid.path(color);
        if (path.empty()) continue;
        text +=
            "<path class=\"" + std::string(1, static_cast<char>('a' + color)) + "\" d=\"" + path + "\"/>\n";
    }
    return text + "</svg>\n";
}

}  // namespace

Miniature miniature(const ScoreRun& run) {
    const Notes all = collect(run);
    Miniature result;
    result.events = all.notes.size();
    result.seconds = all.seconds > 0 ? all.seconds : 1;
    frame_keys(all, result);
    result.svg = svg(Grid(all, result));
    if (all.notes.empty()) result.seconds = 0;
    return result;
}

}  // namespace vorn::kit
