#pragma once

#include <map>

#include "kit/diagnose/diagnostic.h"
#include "kit/midi/midi_notes.h"
#include "web/vorn-wasm/engine/request.h"
#include "web/vorn-wasm/engine/run_streams.h"

// A score that has been run, and all that was asked about it.

namespace vorn::web {

// What of a block is worked out from its record.
struct BlockFigures {
    double end_seconds = 0;  // of the last event
    kit::PitchRole pitch;
    kit::LevelRole level;
    std::vector<float> keys;    // of each event; empty: it has no pitch
    std::vector<float> levels;  // decibels
};

struct TempoPoints {
    std::vector<double> seconds;
    std::vector<double> beats;
    std::vector<double> tempos;
};

struct Compilation {
    kit::ScoreRun run;
    SaidTexts said;
    SaidTexts said_for_midi;
    std::vector<kit::Diagnostic> diagnostics;
    std::vector<BlockFigures> figures;  // by block
    TempoPoints tempo;
    std::vector<std::string> midi_remarks;
    std::map<std::string, std::string> texts;  // by the name of the output
};

[[nodiscard]] Compilation compile(const Request& request);

}  // namespace vorn::web
