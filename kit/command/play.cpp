#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/outputs.h"
#include "kit/command/rendering.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"
#include "kit/command/temporary_file.h"
#include "kit/midi/midi_bytes.h"
#include "kit/orchestra/built_in.h"
#include "kit/run/logarithms.h"

// vornkit play: a score as sound, by Csound or, as MIDI, by fluidsynth. The sound file
// is made beside where it will stand and takes its name when it is complete.

namespace vorn::kit {

namespace {

struct PlayArguments {
    std::string score;
    std::string orchestra;
    std::string wave;
    std::string sound_font;
    WantedRoles roles;
    bool midi = false;
    bool relative = false;
};

bool is_midi_file(const PlayArguments& arguments) {
    return arguments.score.ends_with(".mid") || arguments.score.ends_with(".midi");
}

// A sound that is made to be kept, or only to be played.
class SoundFile {
public:
    // `name` empty: to be played. What is no regular file is filled at the end.
    bool open(const std::string& name) {
        name_ = name;
        if (name_.empty()) return is_own(temporary_.make(".wav"), temporary_.error());
        if (!is_own(kept_.open(name_), kept_.error())) return false;
        is_copied_ = name_ == "-" || kept_.written_name() == name_;
        return !is_copied_ || is_own(temporary_.make(".wav"), temporary_.error());
    }

    const std::string& written_name() const {
        return name_.empty() || is_copied_ ? temporary_.name() : kept_.written_name();
    }

    bool keep() { return name_.empty() || is_own((!is_copied_ || copy()) && kept_.keep(), kept_.error()); }

private:
    static bool is_own(bool well, const std::string& error) {
        if (!well) complain(error);
        return well;
    }

    bool copy() {
        std::FILE* const made = std::fopen(temporary_.name().c_str(), "rb");
        if (made == nullptr) return false;
        char part[1 << 16];
        bool well = true;
        for (std::size_t count = 1; well && count > 0;) {
            count = std::fread(part, 1, sizeof part, made);
            well = kept_.write({part, count});
        }
        std::fclose(made);
        return well;
    }

    std::string name_;
    bool is_copied_ = false;
    AtomicFile kept_;
    TemporaryFile temporary_;
};

void tell_figures(const PlayArguments& arguments, const Rendering& rendering) {
    std::FILE* const stream = arguments.wave == "-" ? stderr : stdout;
    std::fprintf(stream, "%s: %.1f s, ", source_name(arguments.score).c_str(), rendering.figures.seconds());
    if (rendering.peak > 0) {
        const double decibels = as_decibels(rendering.peak);
        std::fprintf(stream, "peak %.1f dB\n", decibels);
        if (rendering.clipped > 0) {
            char levels[64];
            std::snprintf(levels, sizeof levels, "%.1f dB", std::max(decibels, 0.1));
            complain(std::to_string(rendering.clipped) +
                     " samples are too loud and were cut off; lower the levels by " + levels + " or more");
        }
    } else {
        std::fprintf(stream, "silent\n");
    }
    std::fflush(stream);
}

// A sound without an instrument of the score, or a silent one with complaints, is not
// what a file is wanted for: an older one may be better.
bool is_worth_keeping(const Rendering& rendering) {
    if (rendering.outcome == Outcome::WELL) return true;
    return !rendering.lacks_instruments && rendering.peak > 0;
}

// Tells what came out, and keeps or plays it.
Outcome deliver(const PlayArguments& arguments, const Rendering& rendering, SoundFile& sound) {
    if (!rendering.has_sound) return rendering.outcome;
    if (!arguments.wave.empty() && !is_worth_keeping(rendering)) {
        complain("\"" + arguments.wave + "\" is not written, since these events are missing from the sound");
        return rendering.outcome;
    }
    tell_figures(arguments, rendering);
    if (!sound.keep()) return Outcome::WRONG_USE;
    if (!arguments.wave.empty()) return rendering.outcome;
    const Outcome played = play_wave(sound.written_name(), rendering.figures);
    return played == Outcome::WELL ? rendering.outcome : played;
}

Outcome play_midi_file(const PlayArguments& arguments, const std::string& name) {
    SoundFile sound;
    if (!sound.open(arguments.wave)) return Outcome::WRONG_USE;
    return deliver(arguments, render_midi(name, arguments.sound_font, sound.written_name()), sound);
}

Outcome play_as_midi(const PlayArguments& arguments, const ScoreRun& run) {
    MidiOptions options;
    options.roles = arguments.roles;
    const MidiNotes notes = midi_notes(run, options);
    TemporaryFile file;
    if (!notes.error.empty()) return wrong_use(notes.error);
    for (const std::string& remark : notes.remarks) complain("note: " + remark);
    if (!file.make(".mid", midi_bytes(notes, arguments.score))) return wrong_use(file.error());
    return play_midi_file(arguments, file.name());
}

Outcome play_with(const PlayArguments& arguments, const std::string& orchestra, const std::string& score,
                  const ScoreRun& run) {
    SoundFile sound;
    if (!sound.open(arguments.wave)) return Outcome::WRONG_USE;
    return deliver(arguments, render_score(orchestra, score, sound.written_name(), run), sound);
}

Outcome play_built_in(const PlayArguments& arguments, const ScoreRun& run) {
    const BuiltIn performance = built_in(run, arguments.roles);
    TemporaryFile orchestra;
    TemporaryFile score;
    if (!orchestra.make(".orc", performance.orchestra)) return wrong_use(orchestra.error());
    if (!score.make(".sco", performance.score)) return wrong_use(score.error());
    return play_with(arguments, orchestra.name(), score.name(), run);
}

Outcome play_score(const PlayArguments& arguments) {
    TemporaryFile score;
    if (!score.make(".sco")) return wrong_use(score.error());
    const ScoreInput input(arguments.score, arguments.relative, score.name());
    if (!input.is_well()) return input.outcome();
    tell_warnings(input.run());
    if (!arguments.wave.empty() && !may_write(arguments.wave, input.sources())) return Outcome::WRONG_USE;
    if (const std::string reason = reason_against(input.run(), arguments.roles); !reason.empty()) {
        return wrong_use(reason);
    }
    if (arguments.midi) return play_as_midi(arguments, input.run());
    if (arguments.orchestra.empty()) return play_built_in(arguments, input.run());
    return play_with(arguments, arguments.orchestra, score.name(), input.run());
}

// Empty when the orchestra can be had.
std::string reason_against_orchestra(const PlayArguments& arguments) {
    if (arguments.orchestra.empty()) return "";
    if (arguments.midi || is_midi_file(arguments)) return "MIDI is played without an orchestra";
    if (arguments.orchestra.ends_with(".csd")) {
        return "\"" + arguments.orchestra +
               "\" holds a score of its own; give an orchestra, or play it with csound";
    }
    SystemSources sources;
    if (!sources.read(arguments.orchestra))
        return "cannot read the orchestra \"" + arguments.orchestra + "\"";
    if (!arguments.wave.empty() && sources.has_read(arguments.wave)) {
        return "\"" + arguments.wave + "\" is read for this; write to another file";
    }
    return "";
}

// Options that would change nothing are refused, lest somebody waits for what they say.
std::string reason_against_options(const PlayArguments& arguments) {
    const bool has_roles = arguments.roles.pitch != 0 || arguments.roles.level != 0;
    if (has_roles && !arguments.orchestra.empty()) {
        return "--pitch and --level are for sounds without an orchestra; this one reads the p-fields itself";
    }
    if (has_roles && is_midi_file(arguments)) return "a MIDI file has no p-fields to choose";
    if (!arguments.sound_font.empty() && !arguments.midi && !is_midi_file(arguments)) {
        return "--soundfont is for MIDI; add --midi";
    }
    return {};
}

Outcome play(const PlayArguments& arguments) {
    for (const std::string& reason :
         {reason_against_orchestra(arguments), reason_against_options(arguments)}) {
        if (!reason.empty()) return wrong_use(reason);
    }
    if (!is_midi_file(arguments)) return play_score(arguments);
    SystemSources sources;
    errno = 0;
    if (!sources.read(arguments.score)) {
        return wrong_use("cannot read \"" + arguments.score + "\": " + std::strerror(errno));
    }
    if (!arguments.wave.empty() && !may_write(arguments.wave, sources)) return Outcome::WRONG_USE;
    return play_midi_file(arguments, arguments.score);
}

}  // namespace

void add_play(CLI::App& app, Outcome& outcome) {
    CLI::App* const command = app.add_subcommand("play", "plays a score, or writes its sound to a file");
    command->footer(
        "Example: vornkit play piece.vorn\n"
        "         vornkit play piece.vorn piece.orc --wav piece.wav\n"
        "         vornkit play --midi piece.vorn\n"
        "Needs csound or, for MIDI, fluidsynth and a sound font.");
    const auto arguments = std::make_shared<PlayArguments>();
    command->add_option("SCORE", arguments->score, "the score, - is standard input; or a MIDI file (.mid)")
        ->required();
    command->add_option("ORC", arguments->orchestra,
                        "the Csound orchestra; without it plain sounds are played");
    command->add_option("--wav", arguments->wave,
                        "write the sound to this file instead; - is standard output");
    command->add_flag("--midi", arguments->midi,
                      "play the score as MIDI, by fluidsynth, with its peak at -3 dB");
    command->add_option("--soundfont", arguments->sound_font, "the sounds for MIDI (.sf2, .sf3)");
    command->add_option("--pitch", arguments->roles.pitch, "the p-field of the pitch")
        ->transform(pfield_name());
    command->add_option("--level", arguments->roles.level, "the p-field of the level")
        ->transform(pfield_name());
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->callback([arguments, &outcome] { outcome = play(*arguments); });
}

}  // namespace vorn::kit
