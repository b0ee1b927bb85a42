#include "kit/events/events_json.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "blocks/commands.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/json_form.h"

// What is said once of a score or a block is an object of the library; events, of
// which there may be millions, are written straight into the text, column by column:
// a quarter of the bytes of an object an event, and what tables are made of in
// pandas and typed arrays in JavaScript.

namespace vorn::kit {

namespace {

using Json = nlohmann::ordered_json;

constexpr int FORM_VERSION = 1;  // a change that old readers do not survive raises it

// The double that prints as the float does: 0.1, not 0.10000000149011612.
Json json_number(float value) {
    if (!std::isfinite(value)) return nullptr;
    char text[32] = {};
    std::to_chars(text, text + sizeof text - 1, value);
    return std::strtod(text, nullptr);
}

// Bytes that are no UTF-8 become U+FFFD.
std::string dumped(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

void add_place(Json& json, const FileSpan& span, const SourceMap& map) {
    json["file"] = nullptr;
    json["line"] = nullptr;
    if (span.file < 0) return;
    json["file"] = map.files()[static_cast<std::size_t>(span.file)].name;
    json["line"] = map.text_place(span).line;
}

Json type_json(int code) {
    const std::string_view name = command_name(code);
    return name.empty() ? Json(nullptr) : Json(name);
}

Json tempo_json(const TempoRecord& tempo, const SourceMap& map) {
    Json json;
    add_place(json, tempo.span, map);
    json["index"] = tempo.index;
    json["start_beat"] = json_number(tempo.definition.start_time);
    json["start_tempo"] = json_number(tempo.definition.start_tempo);
    json["end_beat"] = json_number(tempo.definition.end_time);
    json["end_tempo"] = json_number(tempo.definition.end_tempo);
    json["curve"] = json_number(tempo.definition.curve_type);
    json["exponent"] = json_number(tempo.definition.curve_value);
    return json;
}

Json direct_line_json(const DirectLine& line, const SourceMap& map) {
    Json json;
    add_place(json, line.span, map);
    json["text"] = line.text;
    json["before_block"] = line.before_block + 1;
    return json;
}

Json field_json(const FieldRecord& field, const SourceMap& map) {
    Json json = {{"pfield", field.number},
                 {"input", type_json(field.input_type)},
                 {"output", type_json(field.output_type)}};
    add_place(json, field.statement, map);
    return json;
}

template <typename Record>
Json array_json(const std::vector<Record>& records, const SourceMap& map,
                Json (*to_json)(const Record&, const SourceMap&)) {
    Json json = Json::array();
    for (const Record& record : records) json.push_back(to_json(record, map));
    return json;
}

Json block_json(const ScoreRun& run, std::size_t index, const EventsOptions& options) {
    const BlockRecord& block = run.blocks[index];
    const int in_score = number_in_score(block);
    Json json = {{"block", index + 1},
                 {"block_in_score", in_score > 0 ? Json(in_score) : Json(nullptr)},
                 {"instrument", block.instrument},
                 {"skipped", block.is_skipped}};
    add_place(json, block.header, run.map);
    json["end_line"] = block.end.file >= 0 ? Json(run.map.text_place(block.end).line) : Json(nullptr);
    json["start_beat"] = json_number(block.start_beat);
    json["start_seconds"] = json_number(block.start_seconds);
    json["length"] = json_number(block.length);
    json["fields"] = array_json(block.fields, run.map, field_json);
    json["count"] = count_shown(block, options);
    return json;
}

Json score_json(const ScoreRun& run) {
    const bool has_score = !run.map.files().empty();
    Json json = {{"version", FORM_VERSION},
                 {"score", has_score ? Json(run.map.files().front().name) : Json(nullptr)},
                 {"status", run.status},
                 {"seconds", run.seconds}};
    json["tempos"] = array_json(run.tempos, run.map, tempo_json);
    json["direct_lines"] = array_json(run.direct_lines, run.map, direct_line_json);
    json["diagnostics"] = Json::parse(json_diagnostics(from_messages(run), run.map));
    return json;
}

// An object but for its "}", so that more can follow.
void add_open_object(TableText& text, const Json& json) {
    const std::string object = dumped(json);
    text.text(std::string_view(object).substr(0, object.size() - 1));
}

void add_number(TableText& text, const BlockRecord&, const EventColumn& column, std::size_t row) {
    text.number(column.value(row), "null");
}

void add_written_form(TableText& text, const BlockRecord& block, const EventColumn& column, std::size_t row) {
    if (!is_written(block, column, row)) {
        text.text("null");
        return;
    }
    text.character('"');
    add_written(text, column, row);
    text.character('"');
}

using AddValue = void (*)(TableText&, const BlockRecord&, const EventColumn&, std::size_t row);

template <AddValue add>
void add_list(TableText& text, const BlockRecord& block, const EventColumn& column,
              const EventsOptions& options) {
    bool first = true;
    for (std::size_t row = 0; row < block.events.size() && text.takes_more(); ++row) {
        if (!is_shown(block, row, options)) continue;
        if (!first) text.character(',');
        first = false;
        add(text, block, column, row);
    }
}

void add_events(TableText& text, const BlockRecord& block, const EventsOptions& options) {
    std::string_view before = "{\n\"";
    for (const EventColumn& column : event_columns(block)) {
        text.text(before);
        before = "],\n\"";
        text.text(column.name + "\":[");
        add_list<add_number>(text, block, column, options);
        if (!column.has_written_form) continue;
        text.text(before);
        text.text(column.name + "_written\":[");
        add_list<add_written_form>(text, block, column, options);
    }
    text.text("]}");
}

}  // namespace

bool write_events_json(const ScoreRun& run, const EventsOptions& options, TextSink& sink) {
    TableText text(sink);
    add_open_object(text, score_json(run));
    text.text(",\"blocks\":[");
    for (std::size_t index = 0; index < run.blocks.size() && text.takes_more(); ++index) {
        text.text(index == 0 ? "\n" : ",\n");
        add_open_object(text, block_json(run, index, options));
        text.text(",\"events\":");
        add_events(text, run.blocks[index], options);
        text.character('}');
    }
    text.text("]}\n");
    return text.finish();
}

}  // namespace vorn::kit
