#pragma once

#include "kit/command/outcome.h"
#include "kit/command/wave_file.h"
#include "kit/orchestra/complaints.h"
#include "kit/run/score_run.h"

// Sound files made by other programs.

namespace vorn::kit {

struct Rendering {
    Outcome outcome = Outcome::WRONG_USE;
    bool has_sound = false;          // the sound file is complete, though notes may be missing from it
    bool lacks_instruments = false;  // the orchestra has not all that the score plays
    WaveFigures figures;             // of the sound file
    double peak = 0;                 // 1: full scale; above it is what was cut off
    std::uint64_t clipped = 0;       // samples that were cut off
};

// Has Csound perform a score into a WAV file of 24 bits. Its complaints are told on
// standard error, with the blocks of `run` that they are about.
[[nodiscard]] Rendering render_score(const std::string& orchestra, const std::string& score,
                                     const std::string& wave, const ScoreRun& run);

// What Csound complained of, a line each, with its place in the score; empty: of nothing.
[[nodiscard]] std::string complaint_lines(const PerformanceReport& report, const SourceMap& map);

// Has fluidsynth play a MIDI file into a WAV file, with its peak at -3 dB. Without a sound
// font one of those is taken that Debian's packages have.
[[nodiscard]] Rendering render_midi(const std::string& midi, const std::string& sound_font,
                                    const std::string& wave);

// Has Csound play a WAV file on the audio device.
[[nodiscard]] Outcome play_wave(const std::string& wave, const WaveFigures& figures);

}  // namespace vorn::kit
