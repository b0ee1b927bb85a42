#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "kit/run/score_run.h"

// A p-field statement as a row of items, each where it stands:
//
//     p4 no < c4:e g x2 > pf(2) ra(T 1 [c4 c5])
//        |  | |  || |   | |     |       |  |
//        |  | |  || |   | |     generator, and values within it
//        |  | |  || |   | setting
//        |  loop, value, fusion, value, value, times, end of the loop
//        input type
//
// The engine's own readers tell where each of them ends, what no rule needs of a
// generator is left out.

namespace vorn::kit {

enum class ItemKind {
    VALUE,
    FUSION,
    SLASH,
    TIMES,
    COMMA,
    LOOP_OPEN,
    LOOP_CLOSE,
    INPUT_TYPE,
    GENERATOR,
    SETTING,
};

struct Item {
    ItemKind kind = ItemKind::VALUE;
    std::size_t begin = 0;  // bytes [begin, end) of the statement's text
    std::size_t end = 0;
    int code = 0;               // of a VALUE the input type, of commands their own
    bool in_generator = false;  // within the parentheses of one
    float value = 0;            // of a VALUE
    std::uint64_t times = 0;    // of TIMES
};

using Items = std::span<const Item>;

struct Statement {
    const ScoreRun* run = nullptr;
    const BlockRecord* block = nullptr;
    const FieldRecord* field = nullptr;
    Excerpt excerpt;
    std::vector<Item> items;
    bool is_whole = false;  // every item could be read
    LinePlace full;         // where the block was full before the statement's end; line 0: it was not

    std::string text(const Item& item) const {
        return excerpt.text.substr(item.begin, item.end - item.begin);
    }
    std::string text(Items row) const {
        return excerpt.text.substr(row.front().begin, row.back().end - row.front().begin);
    }
    LinePlace begin_of(const Item& item) const { return excerpt.place(item.begin); }
    LinePlace last_of(const Item& item) const { return excerpt.place(item.end - 1); }
    bool is_dropped(const Item& item) const;  // the block was full before it
    bool has(ItemKind kind) const;
};

// The statements of a run in turn; each is gone when `visit` returns. Meanwhile the
// engine's tempo map is that of the statement's block.
void for_each_statement(const ScoreRun& run, const std::function<void(const Statement&)>& visit);

}  // namespace vorn::kit
