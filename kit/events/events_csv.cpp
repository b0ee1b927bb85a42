#include "kit/events/events_csv.h"

#include <algorithm>

namespace vorn::kit {

namespace {

std::string quoted(const std::string& field) {
    if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
    std::string text = "\"";
    for (const char c : field) text.append(c == '"' ? 2 : 1, c);
    return text + "\"";
}

std::size_t most_columns(const ScoreRun& run) {
    std::size_t most = 0;
    for (const BlockRecord& block : run.blocks) most = std::max(most, block.columns());
    return most;
}

void add_header(TableText& text, std::size_t columns) {
    text.text("block,instrument,file,line,start,start_written,duration,duration_written,beat");
    for (std::size_t pfield = 4; pfield < columns + 4; ++pfield) {
        const std::string name = "p" + std::to_string(pfield);
        for (const char* const part : {",", name.c_str(), ",", name.c_str(), "_written"}) text.text(part);
    }
    text.character('\n');
}

// What all lines of a block begin with.
std::string line_head(const ScoreRun& run, std::size_t index) {
    const BlockRecord& block = run.blocks[index];
    std::string head = std::to_string(index + 1) + "," + std::to_string(block.instrument) + ",";
    if (block.header.file < 0) return head + ",";
    const SourceFile& file = run.map.files()[static_cast<std::size_t>(block.header.file)];
    return head + quoted(file.name) + "," + std::to_string(run.map.text_place(block.header).line);
}

void add_value(TableText& text, const BlockRecord& block, const EventColumn& column, std::size_t row) {
    text.character(',');
    text.number(column.value(row), "");
    if (!column.has_written_form) return;
    text.character(',');
    if (is_written(block, column, row)) add_written(text, column, row);
}

void add_block(TableText& text, const ScoreRun& run, std::size_t index, const EventsOptions& options,
               std::size_t most) {
    const BlockRecord& block = run.blocks[index];
    const std::string head = line_head(run, index);
    const std::string tail = std::string(2 * (most - block.columns()), ',') + "\n";
    const std::vector<EventColumn> columns = event_columns(block);
    for (std::size_t row = 0; row < block.events.size() && text.takes_more(); ++row) {
        if (!is_shown(block, row, options)) continue;
        text.text(head);
        for (const EventColumn& column : columns) add_value(text, block, column, row);
        text.text(tail);
    }
}

}  // namespace

bool write_events_csv(const ScoreRun& run, const EventsOptions& options, TextSink& sink) {
    TableText text(sink);
    const std::size_t most = most_columns(run);
    add_header(text, most);
    for (std::size_t index = 0; index < run.blocks.size(); ++index) {
        add_block(text, run, index, options, most);
    }
    return text.finish();
}

}  // namespace vorn::kit
