#include "web/vorn-wasm/engine/compilation.h"

#include <algorithm>
#include <cmath>

#include "kit/diagnose/from_messages.h"
#include "kit/picture/beats.h"
#include "kit/run/recorder.h"
#include "kit/vary/variation.h"
#include "web/vorn-wasm/engine/file_sources.h"
#include "web/vorn-wasm/engine/further_outputs.h"

// One observed run yields everything but the MIDI file of the first block, which
// the engine makes in a run of its own:
//
//     score --seed put in--> run --> record --> diagnostics, figures, texts
//                            run -m -> file

namespace vorn::web {

namespace {

constexpr std::size_t TEMPO_POINTS = 2049;

void put_seed(const Request& request, FileSources& sources) {
    kit::RunOptions options = request.run;
    options.keep_events = false;
    const kit::ScoreRun run = kit::run_score(request.score_name(), options, sources);
    if (run.map.files().empty()) return;
    const kit::Variation variation = kit::find_seed(run);
    if (!variation.error.empty()) return;
    const kit::SourceFile& file = run.map.files()[static_cast<std::size_t>(variation.file)];
    write_text(file.name, kit::varied_text(variation, file.text, std::to_string(*request.seed)));
}

double end_of(const kit::BlockRecord& block) {
    double end = block.start_seconds;
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        end = std::max(end, block.events.exact_start[row] + std::max(0.0F, block.events.duration[row]));
    }
    return end;
}

template <typename Role, typename Convert>
std::vector<float> converted(const kit::BlockRecord& block, const Role& role, Convert convert) {
    std::vector<float> values;
    if (role.pfield < 4) return values;
    values.reserve(block.events.size());
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        values.push_back(static_cast<float>(convert(role, block.value(row, role.pfield))));
    }
    return values;
}

BlockFigures figures_of(const kit::BlockRecord& block, const kit::WantedRoles& roles) {
    BlockFigures figures;
    figures.end_seconds = end_of(block);
    if (block.is_skipped) return figures;
    figures.pitch = kit::find_pitch(block, roles);
    figures.level = kit::find_level(block, roles);
    figures.keys = converted(block, figures.pitch, kit::to_key);
    figures.levels = converted(block, figures.level, kit::to_decibels);
    return figures;
}

TempoPoints tempo_points(const kit::ScoreRun& run) {
    TempoPoints points;
    if (!(run.seconds > 0) || !std::isfinite(run.seconds)) return points;
    const double step = run.seconds / static_cast<double>(TEMPO_POINTS - 1);
    const kit::BeatMap map(run, step);
    if (map.is_empty()) return points;
    for (std::size_t at = 0; at < TEMPO_POINTS; ++at) {
        points.seconds.push_back(step * static_cast<double>(at));
        points.beats.push_back(map.beat(points.seconds.back()));
    }
    points.tempos = kit::tempos_over_time(run, map, points.seconds);
    return points;
}

// Observed, so that includes are found in the same places.
SaidTexts run_for_midi(const Request& request, FileSources& sources) {
    kit::RunOptions options = request.run;
    options.keep_events = false;
    kit::ScoreRun run;
    kit::Recorder recorder(run, options, sources);
    return run_vorn(request.midi_arguments, &recorder);
}

}  // namespace

Compilation compile(const Request& request) {
    FileSources sources;
    if (request.seed) put_seed(request, sources);
    Compilation compilation;
    kit::Recorder recorder(compilation.run, request.run, sources);
    compilation.said = run_vorn(request.arguments, &recorder);
    compilation.run.status = compilation.said.status;
    if (!request.midi_arguments.empty()) compilation.said_for_midi = run_for_midi(request, sources);
    compilation.diagnostics = kit::from_messages(compilation.run);
    kit::add_lint(compilation.diagnostics, compilation.run, request.lint);
    for (const kit::BlockRecord& block : compilation.run.blocks) {
        compilation.figures.push_back(figures_of(block, request.roles));
    }
    compilation.tempo = tempo_points(compilation.run);
    make_further_outputs(compilation, request);
    return compilation;
}

}  // namespace vorn::web
