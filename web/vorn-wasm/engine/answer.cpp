#include "web/vorn-wasm/engine/answer.h"

#include "blocks/commands.h"
#include "kit/vary/variation.h"
#include "web/vorn-wasm/engine/diagnostics_answer.h"

namespace vorn::web {

namespace {

template <typename Role>
void add_role(JsonText& json, std::string_view name, const Role& role) {
    json.key(name);
    if (role.pfield == 0) {
        json.raw("null");
        return;
    }
    json.open('{')
        .key("pfield")
        .number(role.pfield)
        .key("unit")
        .number(static_cast<int>(role.unit))
        .close('}');
}

void add_table(JsonText& json, const kit::BlockRecord& block, const BlockFigures& figures) {
    json.key("events").open('{');
    json.key("start").address(block.events.start).key("exactStart").address(block.events.exact_start);
    json.key("duration").address(block.events.duration).key("beat").address(block.events.beat);
    json.key("values").address(block.events.values).key("columns").count(block.columns());
    json.key("keys").address(figures.keys).key("levels").address(figures.levels);
    json.close('}');
}

void add_fields(JsonText& json, const kit::BlockRecord& block, const kit::SourceMap& map) {
    json.key("fields").open('[');
    for (const kit::FieldRecord& field : block.fields) {
        json.open('{').key("pfield").number(field.number);
        json.key("inputType").text(command_name(field.input_type));
        json.key("outputType").text(command_name(field.output_type));
        add_place(json, "statement", field.statement, map);
        json.key("decimals").count(field.decimals).close('}');
    }
    json.close(']');
}

void add_block(JsonText& json, const kit::BlockRecord& block, const BlockFigures& figures,
               const kit::SourceMap& map) {
    json.open('{').key("number").number(block.is_skipped ? 0 : block.number);
    json.key("instrument").number(block.instrument).key("isSkipped").flag(block.is_skipped);
    add_place(json, "header", block.header, map);
    add_place(json, "end", block.end, map);
    json.key("startBeat").number(block.start_beat).key("length").number(block.length);
    json.key("startSeconds").number(block.start_seconds).key("endSeconds").number(figures.end_seconds);
    add_role(json, "pitch", figures.pitch);
    add_role(json, "level", figures.level);
    add_fields(json, block, map);
    add_table(json, block, figures);
    json.close('}');
}

void add_blocks(JsonText& json, const Compilation& compilation) {
    json.key("blocks").open('[');
    for (std::size_t at = 0; at < compilation.run.blocks.size(); ++at) {
        add_block(json, compilation.run.blocks[at], compilation.figures[at], compilation.run.map);
    }
    json.close(']');
}

void add_constants(JsonText& json, const kit::ScoreRun& run) {
    json.key("constants").open('[');
    for (const kit::ConstantRecord& constant : run.constants) {
        json.open('{').key("name").text(constant.name).key("value").number(constant.value);
        add_place(json, "place", constant.span, run.map);
        json.key("calls").count(constant.calls).close('}');
    }
    json.close(']');
}

void add_macros(JsonText& json, const kit::ScoreRun& run) {
    json.key("macros").open('[');
    for (const kit::MacroRecord& macro : run.macros) {
        json.open('{').key("name").text(macro.name).key("argumentCount").number(macro.argument_count);
        json.key("body").text(macro.body);
        add_place(json, "place", macro.span, run.map);
        json.close('}');
    }
    json.close(']');
}

// The number that stands where a seed would be put; null where none is written.
void add_seed_value(JsonText& json, const kit::ScoreRun& run, const kit::Variation& seed) {
    json.key("value");
    for (const kit::SettingRecord& setting : run.settings) {
        if (!seed.before.empty() || command_name(setting.command) != "rs") continue;
        json.number(setting.value);
        return;
    }
    json.raw("null");
}

void add_seed(JsonText& json, const kit::ScoreRun& run) {
    json.key("seed");
    const kit::Variation seed = run.map.files().empty() ? kit::Variation{"no file"} : kit::find_seed(run);
    if (!seed.error.empty()) {
        json.raw("null");
        return;
    }
    json.open('{');
    add_seed_value(json, run, seed);
    add_place(json, "place", {seed.file, seed.begin, seed.end}, run.map);
    json.key("before").text(seed.before).key("after").text(seed.after).close('}');
}

void add_files(JsonText& json, const kit::SourceMap& map) {
    json.key("files").open('[');
    for (const kit::SourceFile& file : map.files()) {
        json.open('{').key("name").text(file.name).key("text").address(file.text).close('}');
    }
    json.close(']');
}

void add_texts(JsonText& json, const Compilation& compilation) {
    json.key("texts").open('{').key("messages").address(compilation.said.err);
    json.key("trace").address(compilation.said.out);
    json.key("midiMessages").address(compilation.said_for_midi.err);
    for (const auto& [name, text] : compilation.texts) json.key(name).address(text);
    json.close('}');
}

void add_tempo(JsonText& json, const TempoPoints& points) {
    json.key("tempo").open('{').key("seconds").address(points.seconds);
    json.key("beats").address(points.beats).key("tempos").address(points.tempos).close('}');
}

}  // namespace

std::string compilation_answer(const Compilation& compilation) {
    const kit::ScoreRun& run = compilation.run;
    JsonText json;
    json.open('{').key("status").number(run.status);
    json.key("midiStatus").number(compilation.said_for_midi.status).key("seconds").number(run.seconds);
    add_texts(json, compilation);
    add_files(json, run.map);
    json.key("missing").texts(run.tried_includes);
    add_diagnostics(json, compilation.diagnostics, run.map);
    add_blocks(json, compilation);
    add_tempo(json, compilation.tempo);
    add_constants(json, run);
    add_macros(json, run);
    add_seed(json, run);
    json.key("midiRemarks").texts(compilation.midi_remarks).close('}');
    return json.take();
}

std::string command_answer(const SaidTexts& said) {
    JsonText json;
    json.open('{').key("status").number(said.status).key("out").address(said.out);
    json.key("err").address(said.err).close('}');
    return json.take();
}

std::string performance_answer(const kit::PerformanceReport& report, const kit::SourceMap& map) {
    JsonText json;
    json.open('{');
    add_diagnostics(json, report.diagnostics, map);
    json.key("otherLines").texts(report.other_lines);
    json.key("hasStarted").flag(report.has_started).key("hasEnded").flag(report.has_ended);
    json.key("peak").number(report.peak).key("clipped").count(report.clipped).close('}');
    return json.take();
}

std::string texts_answer(const std::vector<std::string>& texts) {
    JsonText json;
    return json.texts(texts).take();
}

}  // namespace vorn::web
