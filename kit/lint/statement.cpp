#include "kit/lint/statement.h"

#include <algorithm>

#include "input/errors.h"
#include "kit/lint/item_reader.h"
#include "kit/run/tempo.h"

// Statements are taken from the expanded text between the places that the run has
// told, and read once more for their items.

namespace vorn::kit {

namespace {

bool is_before(const LinePlace& a, const LinePlace& b) {
    return a.line != b.line ? a.line < b.line : a.pos < b.pos;
}

bool tells_full_block(const RunMessage& message) {
    constexpr int NUMBERS[] = {warning::EVENTS_NOT_ADDED, warning::DDF_TRUNCATED, warning::REPEAT_TRUNCATED};
    return message.severity == Severity::WARNING &&
           std::count(std::begin(NUMBERS), std::end(NUMBERS), message.number) > 0;
}

// Those warnings by place, which is their order.
std::vector<const RunMessage*> full_blocks(const ScoreRun& run) {
    std::vector<const RunMessage*> messages;
    for (const RunMessage& message : run.messages) {
        if (tells_full_block(message)) messages.push_back(&message);
    }
    return messages;
}

void note_full_block(Statement& statement, const std::vector<const RunMessage*>& messages) {
    const auto first = std::partition_point(messages.begin(), messages.end(), [&](const RunMessage* message) {
        return is_before(message->place, statement.field->begin);
    });
    if (first == messages.end() || is_before(statement.field->end, (*first)->place)) return;
    statement.full = (*first)->place;
}

}  // namespace

bool Statement::is_dropped(const Item& item) const {
    return full.line > 0 && !is_before(begin_of(item), full);
}

bool Statement::has(ItemKind kind) const {
    return std::any_of(items.begin(), items.end(), [kind](const Item& item) { return item.kind == kind; });
}

void for_each_statement(const ScoreRun& run, const std::function<void(const Statement&)>& visit) {
    const std::vector<const RunMessage*> messages = full_blocks(run);
    begin_reading_items();
    TempoInForce tempos(run);
    for (std::size_t block = 0; block < run.blocks.size(); ++block) {
        tempos.advance_to(block);
        for (const FieldRecord& field : run.blocks[block].fields) {
            Statement statement;
            statement.run = &run;
            statement.block = &run.blocks[block];
            statement.field = &field;
            statement.excerpt = run.expanded.excerpt(field.begin, field.end);
            statement.is_whole = read_items(statement.excerpt.text, statement.items);
            note_full_block(statement, messages);
            visit(statement);
        }
    }
}

}  // namespace vorn::kit
