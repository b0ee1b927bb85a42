#include "web/vorn-wasm/engine/answer.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "blocks/commands.h"
#include "kit/diagnose/json_form.h"
#include "kit/vary/variation.h"

// Places are [file, first byte, byte behind, line, character, end line, end character],
// the file as an index into the files of the run; null where there is none.

namespace vorn::web {

namespace {

using Json = nlohmann::ordered_json;

std::string dumped(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

template <typename Value>
Json address(const Value* data, std::size_t size) {
    return {reinterpret_cast<std::uintptr_t>(data), size};
}

Json address(const std::string& text) { return address(text.data(), text.size()); }

template <typename Value>
Json address(const std::vector<Value>& values) {
    return address(values.data(), values.size());
}

Json place(const kit::FileSpan& span, const kit::SourceMap& map) {
    if (span.file < 0) return nullptr;
    const kit::TextPlace begin = map.text_place(span);
    const kit::TextPlace end = map.text_place({span.file, span.end, span.end});
    return {span.file, span.begin, span.end, begin.line, begin.character, end.line, end.character};
}

template <typename Role>
Json role(const Role& found) {
    if (found.pfield == 0) return nullptr;
    return {{"pfield", found.pfield}, {"unit", static_cast<int>(found.unit)}};
}

Json table(const kit::BlockRecord& block, const BlockFigures& figures) {
    return {{"start", address(block.events.start)},
            {"exactStart", address(block.events.exact_start)},
            {"duration", address(block.events.duration)},
            {"beat", address(block.events.beat)},
            {"values", address(block.events.values)},
            {"columns", block.columns()},
            {"keys", address(figures.keys)},
            {"levels", address(figures.levels)}};
}

Json fields(const kit::BlockRecord& block, const kit::SourceMap& map) {
    Json list = Json::array();
    for (const kit::FieldRecord& field : block.fields) {
        list.push_back({{"pfield", field.number},
                        {"inputType", command_name(field.input_type)},
                        {"outputType", command_name(field.output_type)},
                        {"statement", place(field.statement, map)},
                        {"decimals", field.decimals}});
    }
    return list;
}

Json block_json(const kit::BlockRecord& block, const BlockFigures& figures, const kit::SourceMap& map) {
    return {{"number", block.is_skipped ? 0 : block.number},
            {"instrument", block.instrument},
            {"isSkipped", block.is_skipped},
            {"header", place(block.header, map)},
            {"end", place(block.end, map)},
            {"startBeat", block.start_beat},
            {"length", block.length},
            {"startSeconds", block.start_seconds},
            {"endSeconds", figures.end_seconds},
            {"pitch", role(figures.pitch)},
            {"level", role(figures.level)},
            {"fields", fields(block, map)},
            {"events", table(block, figures)}};
}

Json blocks(const Compilation& compilation) {
    Json list = Json::array();
    for (std::size_t at = 0; at < compilation.run.blocks.size(); ++at) {
        list.push_back(block_json(compilation.run.blocks[at], compilation.figures[at], compilation.run.map));
    }
    return list;
}

Json constants(const kit::ScoreRun& run) {
    Json list = Json::array();
    for (const kit::ConstantRecord& constant : run.constants) {
        list.push_back({{"name", constant.name},
                        {"value", constant.value},
                        {"place", place(constant.span, run.map)},
                        {"calls", constant.calls}});
    }
    return list;
}

Json macros(const kit::ScoreRun& run) {
    Json list = Json::array();
    for (const kit::MacroRecord& macro : run.macros) {
        list.push_back({{"name", macro.name},
                        {"argumentCount", macro.argument_count},
                        {"body", macro.body},
                        {"place", place(macro.span, run.map)}});
    }
    return list;
}

// The number that stands where a seed would be put; null where none is written.
Json seed_value(const kit::ScoreRun& run, const kit::Variation& seed) {
    if (!seed.before.empty()) return nullptr;
    for (const kit::SettingRecord& setting : run.settings) {
        if (command_name(setting.command) == "rs") return setting.value;
    }
    return nullptr;
}

Json seed(const kit::ScoreRun& run) {
    if (run.map.files().empty()) return nullptr;
    const kit::Variation found = kit::find_seed(run);
    if (!found.error.empty()) return nullptr;
    return {{"value", seed_value(run, found)},
            {"place", place({found.file, found.begin, found.end}, run.map)},
            {"before", found.before},
            {"after", found.after}};
}

Json tempo(const TempoPoints& points) {
    return {{"seconds", address(points.seconds)},
            {"beats", address(points.beats)},
            {"tempos", address(points.tempos)}};
}

Json files(const kit::SourceMap& map) {
    Json list = Json::array();
    for (const kit::SourceFile& file : map.files()) {
        list.push_back({{"name", file.name}, {"text", address(file.text)}});
    }
    return list;
}

Json texts(const Compilation& compilation) {
    Json named = Json::object();
    named["messages"] = address(compilation.said.err);
    named["trace"] = address(compilation.said.out);
    named["midiMessages"] = address(compilation.said_for_midi.err);
    for (const auto& [name, text] : compilation.texts) named[name] = address(text);
    return named;
}

Json diagnostics(const std::vector<kit::Diagnostic>& list, const kit::SourceMap& map) {
    return Json::parse(kit::json_diagnostics(list, map));
}

}  // namespace

std::string compilation_answer(const Compilation& compilation) {
    const kit::ScoreRun& run = compilation.run;
    return dumped({{"status", run.status},
                   {"midiStatus", compilation.said_for_midi.status},
                   {"seconds", run.seconds},
                   {"texts", texts(compilation)},
                   {"files", files(run.map)},
                   {"missing", run.tried_includes},
                   {"diagnostics", diagnostics(compilation.diagnostics, run.map)},
                   {"blocks", blocks(compilation)},
                   {"tempo", tempo(compilation.tempo)},
                   {"constants", constants(run)},
                   {"macros", macros(run)},
                   {"seed", seed(run)},
                   {"midiRemarks", compilation.midi_remarks}});
}

std::string command_answer(const SaidTexts& said) {
    return dumped({{"status", said.status}, {"out", address(said.out)}, {"err", address(said.err)}});
}

std::string performance_answer(const kit::PerformanceReport& report, const kit::SourceMap& map) {
    return dumped({{"diagnostics", diagnostics(report.diagnostics, map)},
                   {"otherLines", report.other_lines},
                   {"hasStarted", report.has_started},
                   {"hasEnded", report.has_ended},
                   {"peak", report.peak},
                   {"clipped", report.clipped}});
}

std::string texts_answer(const std::vector<std::string>& list) { return dumped(list); }

}  // namespace vorn::web
