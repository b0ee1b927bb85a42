#include "kit/command/rendering.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

#include "kit/command/console.h"
#include "kit/command/process.h"
#include "kit/command/progress.h"
#include "kit/command/temporary_file.h"
#include "kit/diagnose/text_form.h"
#include "kit/run/decimal_text.h"

// A sound is first made as a file and then played from it: so its peak is known
// before, and an orchestra that is slower than time cannot make it stumble. How loud a MIDI
// file becomes its sound font decides, so it is rendered once more with the gain that
// brings the peak of the first time to where it should be. Csound's
// status counts errors, so that one above 128 need not be a signal's; and neither program
// tells by its status that a file could not be written whole.

namespace vorn::kit {

namespace {

const std::string NOT_WHOLE = "the sound could not be written whole; the disk may be full";

const std::string NO_FILE =
    "Csound wrote no sound file; a -o in the file .csound6rc would send the sound elsewhere";

constexpr double MIDI_PEAK = 0.70795;  // -3 dB: loud, with room for what an encoder adds
constexpr double TOLERANCE = 0.01;     // a tenth of a decibel
constexpr double FIRST_GAIN = 0.2;     // fluidsynth's own
constexpr double SMALLEST_GAIN = 1e-4;
constexpr double LARGEST_GAIN = 10;
constexpr int MOST_RENDERINGS = 5;

constexpr const char* SOUND_FONTS[] = {
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf3/default-GM.sf3",
};

// A name that begins with "-" would be read as an option.
std::string as_argument(const std::string& name) { return name.rfind('-', 0) == 0 ? "./" + name : name; }

// While it makes a sound, a program is waited for.
ProcessResult run_renderer(const std::vector<std::string>& arguments) {
    const Progress progress("rendering with " + arguments[0]);
    return run_process(arguments);
}

// False, with the reason told, when there is no such program.
bool has_begun(const ProcessResult& result, const std::string& program, const std::string& package) {
    if (result.is_missing) {
        complain(how_to_install(program, package));
    } else if (result.status < 0) {
        complain("cannot run " + program + ": " + result.errors);
    }
    return result.status >= 0;
}

std::string first_line(const std::string& text) { return text.substr(0, text.find('\n')); }

void tell(const PerformanceReport& report, const SourceMap& map) {
    const TextStyle style = style_for(stderr);
    for (const Diagnostic& diagnostic : report.diagnostics) {
        std::fputs(text_form(diagnostic, map, style).c_str(), stderr);
    }
    for (const std::string& line : report.other_lines) complain("Csound: " + line);
}

bool has_errors(const PerformanceReport& report, const SourceMap& map) {
    return !complaint_lines(report, map).empty();
}

bool is_sound_font(const std::string& name) {
    char begin[12] = {};
    std::FILE* const file = std::fopen(name.c_str(), "rb");
    if (file == nullptr) return false;
    const bool is_read = std::fread(begin, sizeof begin, 1, file) == 1;
    std::fclose(file);
    const std::string_view text(begin, sizeof begin);
    return is_read && text.starts_with("RIFF") && text.ends_with("sfbk");
}

// Why that file cannot be played with.
std::string reason_against_font(const std::string& wanted) {
    if (wanted.empty()) return how_to_install("a sound font", "fluid-soundfont-gm, or timgm6mb-soundfont");
    errno = 0;
    if (access(wanted.c_str(), R_OK) != 0) {
        return "cannot read the sound font \"" + wanted + "\": " + std::strerror(errno);
    }
    return "\"" + wanted + "\" is no sound font (.sf2, .sf3)";
}

bool measure(Rendering& rendering, const std::string& wave) {
    const std::optional<WaveFigures> figures = measure_wave(wave);
    if (!figures) return false;
    rendering.has_sound = true;
    rendering.figures = *figures;
    rendering.peak = figures->peak;
    return true;
}

std::string find_sound_font(const std::string& wanted) {
    if (!wanted.empty()) return is_sound_font(wanted) ? wanted : "";
    for (const char* const font : SOUND_FONTS) {
        if (access(font, R_OK) == 0) return font;
    }
    return "";
}

// False, with the reason told, when fluidsynth made no sound.
bool perform_midi(Rendering& rendering, const std::string& midi, const std::string& font,
                  const std::string& wave, double gain) {
    const ProcessResult result =
        run_renderer({"fluidsynth", "-ni", "-q", "-g", decimal_text(gain, 6), "-r", "44100", "-T", "wav",
                      "-F", as_argument(wave), as_argument(font), as_argument(midi)});
    if (!has_begun(result, "fluidsynth", "fluidsynth")) return false;
    const bool is_cut_off = result.errors.find("write error") != std::string::npos;
    if (is_cut_off || result.status != 0 || !measure(rendering, wave)) {
        complain(is_cut_off ? NOT_WHOLE : "fluidsynth made no sound: " + first_line(result.errors));
        return false;
    }
    rendering.clipped = rendering.figures.full_scale;
    return true;
}

// The gain for the peak that is wanted, by a sound of which nothing was cut off; else one for the next try.
double next_gain(const Rendering& rendering, double gain) {
    constexpr double STEP = 8;
    if (rendering.peak == 0) return gain;
    const double factor = rendering.clipped > 0 ? 1 / STEP : MIDI_PEAK / rendering.peak;
    const bool is_near = std::fabs(factor - 1) < TOLERANCE;
    return is_near ? gain : std::clamp(gain * factor, SMALLEST_GAIN, LARGEST_GAIN);
}

// Why Csound has made no whole sound; empty: it has.
std::string failure_of(const PerformanceReport& report, int status) {
    if (report.disk_is_full) return NOT_WHOLE;
    if (report.lacks_device) return NO_FILE;
    if (!report.has_ended) return "Csound ended before its time, status " + std::to_string(status);
    return report.has_started ? "" : "Csound does not take the orchestra or the score";
}

// "inch 1, 2" and "outch 1, a1, 2, a2" for as many channels as there are.
std::string player_text(const WaveFigures& figures) {
    std::string names;
    std::string inputs;
    std::string outputs;
    for (unsigned channel = 1; channel <= figures.channels; ++channel) {
        const std::string number = std::to_string(channel);
        const std::string comma = channel == 1 ? "" : ", ";
        names.append(comma).append("a").append(number);
        inputs.append(comma).append(number);
        outputs.append(comma).append(number).append(", a").append(number);
    }
    return "sr = " + std::to_string(figures.rate) +
           "\nksmps = 32\nnchnls = " + std::to_string(figures.channels) + "\n0dbfs = 1\ninstr 1\n" + names +
           " inch " + inputs + "\noutch " + outputs + "\nendin\n";
}

}  // namespace

std::string complaint_lines(const PerformanceReport& report, const SourceMap& map) {
    std::string lines;
    for (const Diagnostic& diagnostic : report.diagnostics) {
        if (diagnostic.level == Level::ERROR) lines += first_line(text_form(diagnostic, map)) + "\n";
    }
    for (const std::string& line : report.other_lines) lines += "Csound: " + line + "\n";
    return lines.substr(0, lines.size() - (lines.empty() ? 0 : 1));
}

Rendering render_score(const std::string& orchestra, const std::string& score, const std::string& wave,
                       const ScoreRun& run) {
    Rendering rendering;
    const ProcessResult result = run_renderer({"csound", "-d", "-m4", "-W", "-3", "-o", as_argument(wave),
                                               as_argument(orchestra), as_argument(score)});
    if (!has_begun(result, "csound", "csound")) return rendering;
    const PerformanceReport report = read_performance(result.errors + result.output, run);
    tell(report, run.map);
    const std::string failure = failure_of(report, result.status);
    if (!failure.empty() || !measure(rendering, wave)) {
        complain(failure.empty() ? NO_FILE : failure);
    } else {
        rendering.outcome = has_errors(report, run.map) ? Outcome::REFUSED : Outcome::WELL;
        rendering.lacks_instruments = report.lacks_instruments;
        rendering.clipped = report.clipped;
        if (report.clipped > 0) rendering.peak = report.peak;
    }
    return rendering;
}

Rendering render_midi(const std::string& midi, const std::string& sound_font, const std::string& wave) {
    Rendering rendering;
    const std::string font = find_sound_font(sound_font);
    if (font.empty()) {
        complain(reason_against_font(sound_font));
        return rendering;
    }
    double gain = 0;
    double next = FIRST_GAIN;
    for (int count = 0; count < MOST_RENDERINGS && next != gain; ++count) {
        gain = next;
        if (!perform_midi(rendering, midi, font, wave, gain)) return rendering;
        next = next_gain(rendering, gain);
    }
    rendering.outcome = Outcome::WELL;
    return rendering;
}

Outcome play_wave(const std::string& wave, const WaveFigures& figures) {
    TemporaryFile orchestra;
    TemporaryFile score;
    if (!orchestra.make(".orc", player_text(figures)) ||
        !score.make(".sco", "i1 0 " + std::to_string(figures.seconds()) + "\n")) {
        complain(orchestra.error() + score.error());
        return Outcome::WRONG_USE;
    }
    const ProcessResult result = run_process(
        {"csound", "-d", "-m4", "-i", as_argument(wave), "-odac", orchestra.name(), score.name()});
    if (!has_begun(result, "csound", "csound")) return Outcome::WRONG_USE;
    const PerformanceReport report = read_performance(result.errors + result.output, ScoreRun());
    if (!report.lacks_device && report.has_started) return Outcome::WELL;
    complain(report.lacks_device ? "there is no audio device to play on; --wav FILE writes the sound"
                                 : "Csound cannot play; --wav FILE writes the sound");
    return Outcome::WRONG_USE;
}

}  // namespace vorn::kit
