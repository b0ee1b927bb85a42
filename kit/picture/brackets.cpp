#include "kit/picture/brackets.h"

#include <algorithm>
#include <cmath>

// Each block goes into the first row that is free where it begins. There are few
// rows: what finds none is drawn without its label in the one that is free soonest,
// and of those that begin at the same pixel only the first.

namespace vorn::kit {

namespace {

constexpr std::size_t MOST_ROWS = 4;
constexpr double ROOM_OF_BORDERS = 16;  // pixels a block on average, else none is drawn
constexpr double BORDER_GAP = 4;        // pixels; nearer ones are one

struct Row {
    double free_from = -HUGE_VAL;    // no bracket and no label from here on
    double bracket_end = -HUGE_VAL;  // of the last one
};

double begin_of(const Layout& layout, const BlockView& block) {
    return std::max(layout.time(block.begin), layout.time.begin);
}

double end_of(const Layout& layout, const BlockView& block) {
    return std::clamp(layout.time(block.end), layout.time.begin, layout.time.end);
}

std::vector<const BlockView*> by_begin(const Panel& panel) {
    std::vector<const BlockView*> blocks = panel.blocks;
    std::stable_sort(blocks.begin(), blocks.end(),
                     [](const BlockView* a, const BlockView* b) { return a->begin < b->begin; });
    return blocks;
}

// The first row that has room for a bracket with its label, one more if need be.
Row* free_row(std::vector<Row>& rows, double begin) {
    for (Row& row : rows) {
        if (row.free_from <= begin + 0.5) return &row;
    }
    if (rows.size() == MOST_ROWS) return nullptr;
    rows.emplace_back();
    return &rows.back();
}

Row& soonest_row(std::vector<Row>& rows) {
    return *std::min_element(rows.begin(), rows.end(),
                             [](const Row& a, const Row& b) { return a.bracket_end < b.bracket_end; });
}

void place_borders(Panel& panel, const Layout& layout) {
    const double width = layout.time.end - layout.time.begin;
    if (static_cast<double>(panel.blocks.size()) * ROOM_OF_BORDERS > width) return;
    std::vector<double> places;
    for (const BlockView* const block : panel.blocks) {
        places.push_back(begin_of(layout, *block));
        places.push_back(end_of(layout, *block));
    }
    std::sort(places.begin(), places.end());
    for (const double place : places) {
        if (panel.borders.empty() || place >= panel.borders.back() + BORDER_GAP)
            panel.borders.push_back(place);
    }
}

}  // namespace

double place_brackets(Panel& panel, const Layout& layout, double y) {
    std::vector<Row> rows;
    double last_without_label = -HUGE_VAL;
    for (const BlockView* const block : by_begin(panel)) {
        Bracket bracket = {begin_of(layout, *block), end_of(layout, *block), 0, block->place};
        const double label_end = bracket.begin + SPACE + text_width(bracket.label, LABEL_SIZE) + SPACE;
        Row* row = label_end <= layout.width ? free_row(rows, bracket.begin) : nullptr;
        if (row == nullptr) {
            if (bracket.begin < last_without_label + 1) continue;
            last_without_label = bracket.begin;
            bracket.label.clear();
            if (rows.empty()) rows.emplace_back();
            row = &soonest_row(rows);
        }
        row->bracket_end = std::max(row->bracket_end, bracket.end);
        row->free_from =
            std::max({row->free_from, bracket.end, bracket.label.empty() ? bracket.end : label_end});
        bracket.y = y + static_cast<double>(row - rows.data()) * BRACKET_HEIGHT;
        panel.brackets.push_back(bracket);
    }
    place_borders(panel, layout);
    return static_cast<double>(rows.size()) * BRACKET_HEIGHT;
}

}  // namespace vorn::kit
